#pragma once

#include "gui/HelpButtonDialog.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QVBoxLayout;

namespace koral {

class DirectoryListRules;

// A directory dialog: the list, the occupied count against the maximum, the edit with ADD and
// DELETE under it and the status line that says what is wrong with the typed text. The rules
// are the directory's editor; on OK the caller takes the editor's result.
class DirectoryListDialog : public HelpButtonDialog
{
    Q_OBJECT
public:
    struct Labels
    {
        QString title;
        QString occupied;  // "Occupied Addresses:"
        QString editLabel; // above the edit
        int maximum = 0;   // entries the directory holds
        int maxLength = 0; // characters of an entry
    };

    DirectoryListDialog(DirectoryListRules& rules, const Labels& labels, QWidget* parent = nullptr);

    QListWidget* list() const { return m_list; }
    QLineEdit* edit() const { return m_edit; }
    QLabel* statusLine() const { return m_status; }
    QPushButton* addButton() const { return m_add; }
    QPushButton* deleteButton() const { return m_delete; }

protected:
    // The column beside the list, for what a directory shows besides (above the status box).
    QVBoxLayout* sideColumn() const { return m_side; }

private:
    void fillList();
    void showState();

    DirectoryListRules& m_rules;
    QListWidget* m_list;
    QLineEdit* m_edit;
    QLabel* m_occupied;
    QLabel* m_status;
    QPushButton* m_add;
    QPushButton* m_delete;
    QVBoxLayout* m_side;
};

} // namespace koral
