#pragma once

// A main window on the built-in virtual radio, as the window tests against a radio start it:
// CommPort.txt and the data folder in `dir`, message boxes answered automatically, the
// radio's ten-second settling waits shortened. The window is not shown yet, so a test can
// connect to it before the start-up read runs.

#include "VirtualRadioMemory.h"

#include "gui/MainWindow.h"
#include "gui/MessageBoxNotifier.h"
#include "gui/RadioController.h"

#include <QDir>
#include <QTemporaryDir>

#include <memory>

namespace koral::test {

inline std::unique_ptr<MainWindow> windowOnVirtualRadio(const QTemporaryDir& dir,
                                                        VirtualRadioMemory& memory, int stepMs = 0)
{
    QDir::setCurrent(dir.path());
    memory.install(stepMs);
    MessageBoxNotifier::setAutomatic(true);
    MainWindowOptions options;
    options.dataDirectory = dir.filePath("data");
    auto window = std::make_unique<MainWindow>(options);
    window->radio()->session().link().setPumpRoundMilliseconds(1);
    return window;
}

} // namespace koral::test
