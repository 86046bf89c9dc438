#include "gui/FrontPanelCompanionPage.h"
#include "gui/QtText.h"

#include <QAction>
#include <QPushButton>
#include <QVBoxLayout>

namespace koral {

FrontPanelCompanionPage::FrontPanelCompanionPage(FrontPanelKeypad::Layout layout,
                                                 CommandLookup commands, QWidget* parent)
    : QFrame(parent), m_companion(layout), m_commands(std::move(commands))
{
    setObjectName(QStringLiteral("frontPanelCompanion"));
    setFrameShape(QFrame::StyledPanel);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(8);

    const std::size_t keyCount = m_companion.hasMore()
                                     ? std::size_t(FrontPanelCompanion::kShortHeadKeys)
                                     : FrontPanelCompanion::switches().size();
    for (std::size_t i = 0; i < keyCount; ++i) {
        auto* key = new QPushButton(this);
        key->setFocusPolicy(Qt::NoFocus); // the keypad page keeps the keyboard
        key->setCheckable(true);
        key->setFixedSize(72, 36);
        // A switch that is on lights as the radio's own key would.
        key->setStyleSheet(QStringLiteral("QPushButton { font: bold 12px; }"
                                          "QPushButton:checked { background: #FFD060; }"));
        QSizePolicy policy = key->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        key->setSizePolicy(policy);
        connect(key, &QPushButton::clicked, this, [this, key] {
            if (QAction* action = m_commands(key->property("command").toString().toStdString()))
                action->trigger();
            syncKey(key);
        });
        column->addWidget(key);
        m_keys.push_back(key);
    }
    if (m_companion.hasMore()) {
        m_more = new QPushButton(tr("MORE"), this);
        m_more->setObjectName(QStringLiteral("keyMORE"));
        m_more->setFocusPolicy(Qt::NoFocus);
        m_more->setFixedSize(72, 36);
        m_more->setStyleSheet(
            QStringLiteral("QPushButton { font: bold 12px; background: #D8DCE0; }"));
        m_more->setToolTip(tr("The next switches on these keys"));
        connect(m_more, &QPushButton::clicked, this, [this] {
            m_companion.more();
            bindKeys();
        });
        column->addWidget(m_more);
    }
    column->addStretch(1);
    // Every switch's command may change its state or availability from elsewhere (the toolbar,
    // the radio's answer): the key follows it.
    for (const FrontPanelCompanion::Switch& item : FrontPanelCompanion::switches())
        if (QAction* action = m_commands(item.command))
            connect(action, &QAction::changed, this, [this] {
                for (QPushButton* key : m_keys)
                    syncKey(key);
            });
    bindKeys();
}

void FrontPanelCompanionPage::bindKeys()
{
    const auto shown = m_companion.shown();
    for (std::size_t i = 0; i < m_keys.size(); ++i) {
        QPushButton* key = m_keys[i];
        key->setVisible(i < shown.size());
        if (i >= shown.size())
            continue;
        key->setText(qs(shown[i].label));
        key->setObjectName(QStringLiteral("key") + key->text());
        key->setProperty("command", qs(shown[i].command));
        syncKey(key);
    }
}

void FrontPanelCompanionPage::syncKey(QPushButton* key)
{
    QAction* action = m_commands(key->property("command").toString().toStdString());
    key->setEnabled(action && action->isEnabled());
    key->setChecked(action && action->isChecked());
    if (action)
        key->setToolTip(tr("%1 (keyboard: %2)")
                            .arg(QString(action->text()).remove(QLatin1Char('&')),
                                 action->shortcut().toString(QKeySequence::NativeText)));
}

QStringList FrontPanelCompanionPage::shownSwitches() const
{
    QStringList labels;
    for (QPushButton* key : m_keys)
        if (!key->isHidden())
            labels << key->text();
    return labels;
}

QPushButton* FrontPanelCompanionPage::switchKey(const QString& label) const
{
    for (QPushButton* key : m_keys)
        if (!key->isHidden() && key->text() == label)
            return key;
    return nullptr;
}

} // namespace koral
