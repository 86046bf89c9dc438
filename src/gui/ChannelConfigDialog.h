#pragma once

#include "radiodb/ChannelConfigEditor.h"

#include <QDialog>
#include <array>
#include <functional>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSpinBox;

namespace koral {

class ProgramResultLine;

// "Channel Configuration": binds its controls to a ChannelConfigEditor. Every typed change
// goes to the editor, and the controls are refreshed from the editor's state afterwards.
// "Program Channels" writes the edited channels straight into the radio.
class ChannelConfigDialog : public QDialog
{
    Q_OBJECT
public:
    using ProgramFunction = std::function<bool(const ChannelConfigEditor&)>;

    ChannelConfigDialog(ChannelConfigEditor& editor, ProgramFunction program,
                        QWidget* parent = nullptr);

    void accept() override;

    QSpinBox* channelSpin() const { return m_channel; }
    // The CCIR number spin; null without CCIR numbers.
    QSpinBox* ccirSpin() const { return m_ccir; }
    QLineEdit* edit(ChannelConfigEditor::Edit which) const;
    QRadioButton* typeButton(ChannelConfigEditor::FrequencyType type) const;
    QComboBox* list(ChannelConfigEditor::List which) const;
    QLabel* warningLine() const { return m_warning; }
    QPushButton* okButton() const { return m_ok; }
    // "Program Channels"; null without a connected radio.
    QPushButton* programButton() const { return m_program; }

private:
    void refresh();

    ChannelConfigEditor& m_editor;
    QSpinBox* m_channel;
    QSpinBox* m_ccir = nullptr;
    QLabel* m_ccirLabel = nullptr;
    std::array<QLineEdit*, 5> m_edits{};
    std::array<QLabel*, 2> m_duplexLabels{};
    std::array<QRadioButton*, 4> m_types{};
    std::array<QComboBox*, 5> m_lists{};
    QLabel* m_warning;
    QPushButton* m_ok;
    QPushButton* m_program = nullptr;
    ProgramResultLine* m_programResult = nullptr;
    bool m_refreshing = false;
};

} // namespace koral
