#pragma once

#include "radiodb/RadioOptionsEditor.h"

#include <QDialog>
#include <functional>

class QCheckBox;
class QComboBox;
class QPushButton;

namespace koral {

class ProgramResultLine;

// The radio options dialog. It shows the editor's copy and stores every change into it; on
// OK the caller applies the editor to the document. "Program Options" hands the editor to
// the given function, which writes the options into the radio.
class RadioOptionsDialog : public QDialog
{
    Q_OBJECT
public:
    using ProgramFunction = std::function<bool(const RadioOptionsEditor&)>;

    RadioOptionsDialog(RadioOptionsEditor& editor, ProgramFunction program,
                       QWidget* parent = nullptr);

    QComboBox* combo(const QString& name) const;
    QCheckBox* check(const QString& name) const;
    QPushButton* programButton() const { return m_program; }

private:
    void showAccessories();

    RadioOptionsEditor& m_editor;
    QPushButton* m_program = nullptr;
    ProgramResultLine* m_programResult = nullptr;
    QCheckBox* m_tuner;
    QCheckBox* m_amplifier;
    QCheckBox* m_accessory1;
    QCheckBox* m_accessory2;
};

} // namespace koral
