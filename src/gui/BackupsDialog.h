#pragma once

#include <QDialog>

#include <filesystem>
#include <vector>

class QListWidget;
class QPushButton;
class QSpinBox;

namespace koral {

// "Restore Backup": the sets kept before each write, newest first, and how many are kept.
// Restore closes it with the chosen set (its .rss file).
class BackupsDialog : public QDialog
{
    Q_OBJECT
public:
    BackupsDialog(const std::filesystem::path& folder,
                  const std::vector<std::filesystem::path>& sets, int keep,
                  QWidget* parent = nullptr);

    std::filesystem::path chosenSet() const;
    int keep() const;

    QListWidget* list() const { return m_list; }
    QPushButton* restoreButton() const { return m_restore; }
    QSpinBox* keepBox() const { return m_keep; }

private:
    std::vector<std::filesystem::path> m_sets;
    QListWidget* m_list;
    QSpinBox* m_keep;
    QPushButton* m_restore = nullptr;
};

} // namespace koral
