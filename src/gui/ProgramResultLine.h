#pragma once

#include <QLabel>

#include <functional>

namespace koral {

// The line of a dialog that writes straight into the radio ("Program Channels", "Program
// Groups", "Program Options"): while the write runs the dialog is disabled under a wait
// cursor and the line says so; afterwards it shows the result, where the operator looks.
class ProgramResultLine : public QLabel
{
    Q_OBJECT
public:
    explicit ProgramResultLine(QWidget* parent);

    // Runs `write` as described; returns its result.
    bool run(const std::function<bool()>& write);
};

} // namespace koral
