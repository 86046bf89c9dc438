#include "gui/ProgramResultLine.h"

#include "common/Texts.h"
#include "gui/WaitCursor.h"

namespace koral {

ProgramResultLine::ProgramResultLine(QWidget* parent) : QLabel(parent)
{
    setObjectName("programResult");
    // The dialog keeps its size when the line appears.
    QSizePolicy policy = sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
    hide();
}

bool ProgramResultLine::run(const std::function<bool()>& write)
{
    QWidget* dialog = window();
    setStyleSheet({});
    setText(tr("Programming the radio..."));
    show();
    repaint();
    dialog->setEnabled(false);
    bool written = false;
    {
        const WaitCursor wait;
        written = write();
    }
    dialog->setEnabled(true);
    const std::string_view result =
        written ? text::kOperationCompleted : text::byId(text::id::LastCommandFailed);
    setText(QString::fromUtf8(result.data(), qsizetype(result.size())));
    setStyleSheet(written ? QStringLiteral("color: #006000;") : QStringLiteral("color: #c00000;"));
    return written;
}

} // namespace koral
