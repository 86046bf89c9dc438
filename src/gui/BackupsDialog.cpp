#include "gui/BackupsDialog.h"

#include "common/Texts.h"
#include "gui/QtText.h"
#include "session/RadioBackups.h"

#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QUrl>
#include <QVBoxLayout>

namespace koral {

BackupsDialog::BackupsDialog(const std::filesystem::path& folder,
                             const std::vector<std::filesystem::path>& sets, int keep,
                             QWidget* parent)
    : QDialog(parent), m_sets(sets), m_list(new QListWidget(this)), m_keep(new QSpinBox(this))
{
    setWindowTitle(qs(text::kBackupsTitle));
    auto* layout = new QVBoxLayout(this);
    auto* intro = new QLabel(qs(text::kBackupsIntro), this);
    intro->setWordWrap(true);
    layout->addWidget(intro);
    for (const auto& set : m_sets)
        m_list->addItem(QString::fromStdString(RadioBackups::label(set)));
    if (m_sets.empty()) {
        m_list->addItem(qs(text::kBackupsNone));
        m_list->setEnabled(false);
    }
    m_list->setMinimumSize(420, 220);
    layout->addWidget(m_list, 1);

    auto* keepRow = new QHBoxLayout;
    keepRow->addWidget(new QLabel(qs(text::kBackupsKeep), this));
    m_keep->setRange(1, 999);
    m_keep->setValue(keep);
    m_keep->setSuffix(qs(text::kBackupsKeepSuffix));
    keepRow->addWidget(m_keep);
    keepRow->addStretch(1);
    layout->addLayout(keepRow);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    m_restore = buttons->addButton(qs(text::kBackupsRestore), QDialogButtonBox::AcceptRole);
    m_restore->setEnabled(false);
    auto* open = buttons->addButton(qs(text::kBackupsOpenFolder), QDialogButtonBox::ActionRole);
    const QString path = QString::fromStdString(folder.string());
    connect(open, &QPushButton::clicked, this,
            [path] { QDesktopServices::openUrl(QUrl::fromLocalFile(path)); });
    connect(m_list, &QListWidget::currentRowChanged, this,
            [this](int row) { m_restore->setEnabled(row >= 0 && !m_sets.empty()); });
    connect(m_list, &QListWidget::itemDoubleClicked, this, [this] {
        if (m_restore->isEnabled())
            accept();
    });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
}

std::filesystem::path BackupsDialog::chosenSet() const
{
    const int row = m_list->currentRow();
    return row >= 0 && row < static_cast<int>(m_sets.size()) ? m_sets[std::size_t(row)]
                                                             : std::filesystem::path();
}

int BackupsDialog::keep() const
{
    return m_keep->value();
}

} // namespace koral
