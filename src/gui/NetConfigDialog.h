#pragma once

#include "aledb/NetConfigEditor.h"

#include "gui/HelpButtonDialog.h"

#include <map>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QSpinBox;

namespace koral {

// The net configuration dialog: one net at a time and the options of all nets. On OK the
// caller takes editor().programme().
class NetConfigDialog : public HelpButtonDialog
{
    Q_OBJECT
public:
    NetConfigDialog(NetConfigEditor& editor, QWidget* parent = nullptr);

    QSpinBox* netSpin() const { return m_net; }
    QLineEdit* nameEdit() const { return m_name; }
    QLineEdit* selfAddressEdit() const { return m_self; }
    QComboBox* scanRateList() const { return m_scanRate; }
    QCheckBox* optionBox(NetConfigEditor::Option option) const { return m_options.at(option); }

private:
    void showNet();

    NetConfigEditor& m_editor;
    QSpinBox* m_net;
    QLineEdit* m_name;
    QLineEdit* m_self;
    QComboBox* m_scanRate;
    QComboBox* m_tuneTime;
    QComboBox* m_sounding;
    QComboBox* m_occupancy;
    QComboBox* m_masterSlave;
    QCheckBox* m_silent;
    QCheckBox* m_homeAck;
    QCheckBox* m_monitorAck;
    QCheckBox* m_lqa;
    QCheckBox* m_sendAllCall;
    QCheckBox* m_receiveAllCall;
    std::map<NetConfigEditor::Option, QCheckBox*> m_options;
};

} // namespace koral
