#pragma once

#include "radiodb/GroupsEditor.h"

#include <QDialog>
#include <functional>

class QLabel;
class QPushButton;
class QSpinBox;

namespace koral {

class ProgramResultLine;

// The 20 x 10 grid of channel numbers, coloured by the editor's cell states. It forwards
// presses, moves and releases to the editor and shows the hint for the cell under the mouse.
class GroupsGrid : public QWidget
{
    Q_OBJECT
public:
    GroupsGrid(GroupsEditor& editor, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    // The channel under a point of the widget, 0 outside the cells.
    int channelAt(QPoint point) const;
    QRect cellRect(int channel) const;

signals:
    void hovered(int channel);
    void changed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    GroupsEditor& m_editor;
};

// "Groups": edits the five scan groups. On OK the caller takes editor().groups(); "Program
// Groups" writes them straight into the radio through the given function.
class GroupsDialog : public QDialog
{
    Q_OBJECT
public:
    using ProgramFunction = std::function<bool(const GroupSelections&)>;

    GroupsDialog(GroupsEditor& editor, ProgramFunction program, QWidget* parent = nullptr);

    GroupsGrid* grid() const { return m_grid; }
    QSpinBox* groupSpin() const { return m_spin; }
    QLabel* hintLine() const { return m_hint; }
    QLabel* guardLabel() const { return m_guard; }

private:
    void refresh();
    void showHint(int channel);

    GroupsEditor& m_editor;
    GroupsGrid* m_grid;
    QSpinBox* m_spin;
    QLabel* m_guard;
    QLabel* m_hint;
    QPushButton* m_deselect;
    ProgramResultLine* m_programResult = nullptr;
};

} // namespace koral
