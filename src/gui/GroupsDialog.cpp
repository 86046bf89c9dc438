#include "gui/GroupsDialog.h"

#include "gui/ProgramResultLine.h"

#include "gui/GuiColours.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace koral {

namespace {

constexpr int kCellWidth = 34;
constexpr int kCellHeight = 20;

// Shows the group numbers 1..5 as the letters A..E.
class LetterSpinBox : public QSpinBox
{
public:
    using QSpinBox::QSpinBox;

protected:
    QString textFromValue(int value) const override { return QString(QChar('A' - 1 + value)); }
    int valueFromText(const QString& text) const override
    {
        return text.isEmpty() ? 1 : text.at(0).toUpper().unicode() - 'A' + 1;
    }
    QValidator::State validate(QString& text, int&) const override
    {
        if (text.isEmpty())
            return QValidator::Intermediate;
        const QChar c = text.at(0).toUpper();
        return text.size() == 1 && c >= 'A' && c <= 'E' ? QValidator::Acceptable
                                                        : QValidator::Invalid;
    }
};

MouseButton buttonOf(Qt::MouseButton button)
{
    switch (button) {
    case Qt::LeftButton:
        return MouseButton::Left;
    case Qt::RightButton:
        return MouseButton::Right;
    default:
        return MouseButton::Other;
    }
}

} // namespace

GroupsGrid::GroupsGrid(GroupsEditor& editor, QWidget* parent) : QWidget(parent), m_editor(editor)
{
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize GroupsGrid::sizeHint() const
{
    return {GroupsEditor::kColumns * kCellWidth + 1, GroupsEditor::kRows * kCellHeight + 1};
}

QSize GroupsGrid::minimumSizeHint() const
{
    return {GroupsEditor::kColumns * 26 + 1, GroupsEditor::kRows * 16 + 1};
}

QRect GroupsGrid::cellRect(int channel) const
{
    const int index = channel - 1;
    const int row = index / GroupsEditor::kColumns;
    const int column = index % GroupsEditor::kColumns;
    const int w = (width() - 1) / GroupsEditor::kColumns;
    const int h = (height() - 1) / GroupsEditor::kRows;
    return {column * w, row * h, w, h};
}

int GroupsGrid::channelAt(QPoint point) const
{
    const int w = (width() - 1) / GroupsEditor::kColumns;
    const int h = (height() - 1) / GroupsEditor::kRows;
    if (w <= 0 || h <= 0 || point.x() < 0 || point.y() < 0)
        return 0;
    const int column = point.x() / w;
    const int row = point.y() / h;
    if (column >= GroupsEditor::kColumns || row >= GroupsEditor::kRows)
        return 0;
    return GroupsEditor::channelAt(row, column);
}

void GroupsGrid::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QFont bold = font();
    for (int channel = 1; channel <= GroupsEditor::kChannels; ++channel) {
        const QRect rect = cellRect(channel);
        QColor background = colours::freeCell();
        switch (m_editor.cellState(channel)) {
        case CellState::Member:
            background = colours::memberCell();
            break;
        case CellState::Guard:
            background = colours::guardCell();
            break;
        case CellState::Free:
            break;
        }
        // A programmed channel's number has one colour whatever its cell's state.
        const bool programmed = m_editor.isProgrammed(channel);
        const QColor text =
            programmed ? colours::programmedText() : palette().color(QPalette::WindowText);
        painter.fillRect(rect, background);
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawRect(rect);
        bold.setBold(programmed);
        painter.setFont(bold);
        painter.setPen(text);
        painter.drawText(rect, Qt::AlignCenter, QString::number(channel));
    }
}

void GroupsGrid::mousePressEvent(QMouseEvent* event)
{
    const int channel = channelAt(event->position().toPoint());
    if (channel != 0)
        m_editor.press(channel, buttonOf(event->button()));
}

void GroupsGrid::mouseMoveEvent(QMouseEvent* event)
{
    const int channel = channelAt(event->position().toPoint());
    emit hovered(channel);
    if (event->buttons() != Qt::NoButton && channel != 0) {
        m_editor.move(channel);
        update();
        emit changed();
    }
}

void GroupsGrid::mouseReleaseEvent(QMouseEvent* event)
{
    const int channel = channelAt(event->position().toPoint());
    if (channel == 0)
        return;
    m_editor.release(channel);
    update();
    emit changed();
}

void GroupsGrid::leaveEvent(QEvent*)
{
    emit hovered(0);
}

GroupsDialog::GroupsDialog(GroupsEditor& editor, ProgramFunction program, QWidget* parent)
    : QDialog(parent), m_editor(editor)
{
    setWindowTitle(tr("Groups"));

    m_spin = new LetterSpinBox(this);
    m_spin->setRange(1, GroupsEditor::kGroups);
    m_spin->setValue(editor.currentGroup());
    m_guard = new QLabel(this);
    m_guard->setMinimumWidth(60);
    m_deselect = new QPushButton(tr("&Deselect"), this);

    auto* top = new QHBoxLayout;
    auto* groupLabel = new QLabel(tr("&Group"), this);
    groupLabel->setBuddy(m_spin);
    top->addWidget(groupLabel);
    top->addWidget(m_spin);
    top->addSpacing(20);
    top->addWidget(new QLabel(tr("Guard Channel"), this));
    top->addWidget(m_guard);
    top->addStretch();
    top->addWidget(m_deselect);

    auto* box = new QGroupBox(tr("Selected Channels"), this);
    m_grid = new GroupsGrid(editor, box);
    auto* boxLayout = new QVBoxLayout(box);
    boxLayout->addWidget(m_grid);

    m_hint = new QLabel(this);
    m_hint->setAutoFillBackground(true);
    m_hint->setFrameShape(QFrame::Panel);
    m_hint->setFrameShadow(QFrame::Sunken);
    m_hint->setMinimumWidth(colours::twipsToPixels(5000, logicalDpiX()));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    if (program) {
        auto* write = buttons->addButton(tr("&Program Groups"), QDialogButtonBox::ActionRole);
        connect(write, &QPushButton::clicked, this, [this, program] {
            m_programResult->run([&] { return program(m_editor.groups()); });
        });
    }

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(box, 1);
    layout->addWidget(m_hint);
    m_programResult = new ProgramResultLine(this);
    layout->addWidget(m_programResult);
    layout->addWidget(buttons);

    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_spin, &QSpinBox::valueChanged, this, [this](int value) {
        m_editor.stepGroup(value - m_editor.currentGroup());
        refresh();
    });
    connect(m_deselect, &QPushButton::clicked, this, [this] {
        m_editor.deselect();
        refresh();
    });
    connect(m_grid, &GroupsGrid::hovered, this, &GroupsDialog::showHint);
    connect(m_grid, &GroupsGrid::changed, this, &GroupsDialog::refresh);
    refresh();
    showHint(0);
}

void GroupsDialog::refresh()
{
    m_guard->setText(QString::fromStdString(m_editor.guardText()));
    m_deselect->setEnabled(m_editor.deselectEnabled());
    m_grid->update();
}

void GroupsDialog::showHint(int channel)
{
    const auto hint = m_editor.hint(channel);
    m_hint->setText(QString::fromStdString(hint.text));
    QPalette palette = m_hint->palette();
    palette.setColor(QPalette::Window, hint.warning ? colours::guardCell() : colours::freeCell());
    palette.setColor(QPalette::WindowText, Qt::black);
    m_hint->setPalette(palette);
}

} // namespace koral
