#pragma once

#include "aledb/CcirDirectoryEditor.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace koral {

// "CCIR Directory Configuration": the called identities with their slot numbers, and the
// identity edit with ADD and DELETE. On OK the caller takes editor().record().
class CcirDirectoryDialog : public QDialog
{
    Q_OBJECT
public:
    CcirDirectoryDialog(CcirDirectoryEditor& editor, QWidget* parent = nullptr);

    QListWidget* list() const { return m_list; }
    QLineEdit* identityEdit() const { return m_edit; }
    QLabel* statusLine() const { return m_status; }
    QPushButton* addButton() const { return m_add; }
    QPushButton* deleteButton() const { return m_delete; }

private:
    void fillList();
    void showState();

    CcirDirectoryEditor& m_editor;
    QListWidget* m_list;
    QLineEdit* m_edit;
    QLabel* m_occupied;
    QLabel* m_status;
    QPushButton* m_add;
    QPushButton* m_delete;
};

} // namespace koral
