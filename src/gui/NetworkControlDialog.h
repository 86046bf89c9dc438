#pragma once

#include "netcontrol/NetworkControlSettings.h"

#include <QDialog>

class QCheckBox;
class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QSpinBox;

namespace koral {

// "Network Control": whether rig-control clients are served, on which address and port, and
// the scratch channel a client's frequency may be programmed into. The warning line names a
// value that cannot be used (OK is off meanwhile) or warns that other computers get in.
class NetworkControlDialog : public QDialog
{
    Q_OBJECT
public:
    NetworkControlDialog(const NetworkControlSettings& settings, QWidget* parent = nullptr);

    NetworkControlSettings settings() const;

private:
    void update();

    QCheckBox* m_enabled;
    QLineEdit* m_address;
    QSpinBox* m_port;
    QSpinBox* m_scratch;
    QLabel* m_warning;
    QDialogButtonBox* m_buttons;
};

} // namespace koral
