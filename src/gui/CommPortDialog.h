#pragma once

#include "gui/HelpButtonDialog.h"

class QButtonGroup;
class QComboBox;
class QLabel;

namespace koral {

class CommPortEditor;

// "Communication Ports": the port and the baud rate of the link, bound to the session's
// rules. "Check" reconnects with the chosen settings and tests the link; "OK" keeps them.
class CommPortDialog : public HelpButtonDialog
{
    Q_OBJECT
public:
    CommPortDialog(CommPortEditor& editor, QWidget* parent = nullptr);

    void check();
    void accept() override;

    QComboBox* portList() const { return m_ports; }
    QButtonGroup* baudButtons() const { return m_bauds; }

private:
    void showNotice(bool shown);

    CommPortEditor& m_editor;
    QComboBox* m_ports;
    QButtonGroup* m_bauds;
    QLabel* m_notice;
};

} // namespace koral
