#pragma once

#include <QDialog>
#include <QStringList>

#include <string>
#include <vector>

class QListWidget;
class QPushButton;

namespace koral {

// The differences between the radio and the window, one per line. Before a write it asks
// (Write, Cancel); for Compare with Radio it only shows them (Close).
class CompareDialog : public QDialog
{
    Q_OBJECT
public:
    enum class Purpose
    {
        Write,
        Show
    };

    CompareDialog(const std::vector<std::string>& differences, Purpose purpose,
                  QWidget* parent = nullptr);

    QStringList lines() const { return m_lines; }
    // Write before a write, Close otherwise.
    QPushButton* confirmButton() const { return m_confirm; }

private:
    QStringList m_lines;
    QListWidget* m_list;
    QPushButton* m_confirm = nullptr;
};

} // namespace koral
