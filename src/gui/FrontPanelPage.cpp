#include "gui/FrontPanelPage.h"

#include "gui/FrontPanelScreen.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace koral {

namespace {

// The computer's keys for the head's keys; M and G stand for MENU and GPS.
struct KeyboardKey
{
    int qtKey;
    std::string_view label;
};
constexpr KeyboardKey kKeyboard[] = {
    {Qt::Key_0, "0"},          {Qt::Key_1, "1"},          {Qt::Key_2, "2"},
    {Qt::Key_3, "3"},          {Qt::Key_4, "4"},          {Qt::Key_5, "5"},
    {Qt::Key_6, "6"},          {Qt::Key_7, "7"},          {Qt::Key_8, "8"},
    {Qt::Key_9, "9"},          {Qt::Key_F1, "F1"},        {Qt::Key_F2, "F2"},
    {Qt::Key_F3, "F3"},        {Qt::Key_F4, "F4"},        {Qt::Key_Asterisk, "*"},
    {Qt::Key_NumberSign, "#"}, {Qt::Key_Return, "Enter"}, {Qt::Key_Enter, "Enter"},
    {Qt::Key_Escape, "Esc"},   {Qt::Key_M, "MENU"},       {Qt::Key_G, "GPS"},
};

QString shortcutHint(std::string_view label)
{
    if (label == "MENU")
        return QStringLiteral("M");
    if (label == "GPS")
        return QStringLiteral("G");
    return QString::fromUtf8(label.data(), qsizetype(label.size()));
}

// How long a key pressed on the computer's keyboard shows as held down.
constexpr int kFlashMs = 120;

} // namespace

FrontPanelPage::FrontPanelPage(FrontPanelKeypad::Layout layout, const FrontPanelDisplay& display,
                               const FrontPanelKeypad& keypad,
                               FrontPanelCompanionPage::CommandLookup commands, QWidget* parent)
    : QWidget(parent), m_layout(layout), m_keypad(keypad),
      m_screen(new FrontPanelScreen(display, this)),
      m_companion(new FrontPanelCompanionPage(layout, std::move(commands), this))
{
    setObjectName(layout == FrontPanelKeypad::Layout::Full ? QStringLiteral("koralPanel")
                                                           : QStringLiteral("koral2ePanel"));
    setFocusPolicy(Qt::StrongFocus);

    auto* keys = new QGridLayout;
    keys->setSpacing(8);
    for (const FrontPanelKeypad::Key& key : FrontPanelKeypad::keys(layout)) {
        const QString label = QString::fromUtf8(key.label.data(), qsizetype(key.label.size()));
        auto* button = new QPushButton(label, this);
        button->setObjectName(QStringLiteral("key") + label);
        // The page keeps the focus, so the computer's keys always reach the head.
        button->setFocusPolicy(Qt::NoFocus);
        button->setFixedSize(72, 44);
        button->setToolTip(tr("%1 (keyboard: %2)").arg(label, shortcutHint(key.label)));
        const bool digit = key.label.size() == 1 && key.label[0] >= '0' && key.label[0] <= '9';
        button->setStyleSheet(
            digit ? QStringLiteral("QPushButton { font: bold 16px; }")
                  : QStringLiteral("QPushButton { font: bold 12px; background: #D8DCE0; }"));
        const int code = key.code;
        connect(button, &QPushButton::clicked, this, [this, code] { press(code); });
        keys->addWidget(button, key.row, key.column);
        m_buttons[code] = button;
    }

    auto* hint = new QLabel(layout == FrontPanelKeypad::Layout::Full
                                ? tr("Keyboard: 0-9, Enter, Esc, F1-F4, *, #, M = MENU, G = GPS; "
                                     "Ctrl+1-5 = SQL, MON, NB, ATT, CLP")
                                : tr("Keyboard: 0-9, Enter, Esc, *, #, M = MENU; "
                                     "Ctrl+1-5 = SQL, MON, NB, ATT, CLP"),
                            this);
    hint->setObjectName(QStringLiteral("shortcutHint"));
    hint->setAlignment(Qt::AlignCenter);

    auto* column = new QVBoxLayout(this);
    column->addStretch(1);
    column->addWidget(m_screen, 0, Qt::AlignHCenter);
    column->addSpacing(16);
    auto* head = new QHBoxLayout;
    head->addStretch(1);
    head->addLayout(keys);
    head->setAlignment(keys, Qt::AlignTop);
    head->addSpacing(24);
    head->addWidget(m_companion, 0, Qt::AlignTop);
    head->addStretch(1);
    column->addLayout(head);
    column->addSpacing(8);
    column->addWidget(hint);
    column->addStretch(1);
}

QPushButton* FrontPanelPage::button(const QString& label) const
{
    const auto it = m_buttons.find(FrontPanelKeypad::code(m_layout, label.toStdString()));
    return it == m_buttons.end() ? nullptr : it->second;
}

int FrontPanelPage::keyCode(FrontPanelKeypad::Layout layout, int qtKey)
{
    for (const KeyboardKey& key : kKeyboard)
        if (key.qtKey == qtKey)
            return FrontPanelKeypad::code(layout, key.label);
    return 0;
}

bool FrontPanelPage::event(QEvent* event)
{
    // The head's keys win over the window's shortcuts (F1 is help elsewhere) while the page has
    // the focus.
    if (event->type() == QEvent::ShortcutOverride) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier))
            return QWidget::event(event);
        if (keyCode(m_layout, key->key()) != 0) {
            event->accept();
            return true;
        }
    }
    return QWidget::event(event);
}

void FrontPanelPage::keyPressEvent(QKeyEvent* event)
{
    const int code = event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)
                         ? 0
                         : keyCode(m_layout, event->key());
    if (code == 0 || event->isAutoRepeat()) {
        if (code == 0)
            QWidget::keyPressEvent(event);
        return;
    }
    QPushButton* button = m_buttons.at(code);
    button->setDown(true);
    QTimer::singleShot(kFlashMs, button, [button] { button->setDown(false); });
    press(code);
}

void FrontPanelPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    setFocus();
    emit shownChanged(true);
}

void FrontPanelPage::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    emit shownChanged(false);
}

void FrontPanelPage::press(int code)
{
    // The result is not shown: the radio's display answers, or the link already told why not.
    m_keypad.sendKey(code);
}

} // namespace koral
