#pragma once

#include "aledb/DirectoryEditor.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace koral {

// "ALE Directory Configuration": the directory list, the nets' names and self addresses for
// reference, and the address edit with ADD and DELETE. On OK the caller takes
// editor().programme() (the directory and every reference renumbered).
class DirectoryDialog : public QDialog
{
    Q_OBJECT
public:
    DirectoryDialog(DirectoryEditor& editor, QWidget* parent = nullptr);

    QListWidget* list() const { return m_list; }
    QLineEdit* addressEdit() const { return m_edit; }
    QLabel* statusLine() const { return m_status; }
    QPushButton* addButton() const { return m_add; }
    QPushButton* deleteButton() const { return m_delete; }

private:
    void fillList();
    void showState();

    DirectoryEditor& m_editor;
    QListWidget* m_list;
    QLineEdit* m_edit;
    QLabel* m_occupied;
    QLabel* m_status;
    QPushButton* m_add;
    QPushButton* m_delete;
};

} // namespace koral
