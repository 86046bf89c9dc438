#pragma once

#include "session/CallListEditor.h"

#include <QDialog>

class QPushButton;
class QTableWidget;

namespace koral {

// The "Stack List" (calls waiting for a reply, with Reply) or the call log (with Refresh):
// a grid of the list's records and the buttons that act on the selected row. The rules are
// CallListEditor's.
class CallListDialog : public QDialog
{
    Q_OBJECT
public:
    enum class Kind
    {
        Stack,
        Log,
    };
    CallListDialog(Kind kind, std::vector<CallRecord>& list, Notifier& notifier,
                   QWidget* parent = nullptr);

    QTableWidget* grid() const { return m_grid; }
    QPushButton* button(std::string_view label) const;
    // The selected grid row as the editor counts it (0 is the header, -1 none).
    int selectedRow() const;

signals:
    void replyRequested(const koral::CallRecord& record);
    void helpRequested();

private:
    void fill();

    CallListEditor m_editor;
    QTableWidget* m_grid = nullptr;
    QList<QPushButton*> m_buttons;
};

} // namespace koral
