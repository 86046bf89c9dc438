#pragma once

#include "gui/DirectoryListDialog.h"

namespace koral {

class DirectoryEditor;

// "ALE Directory Configuration": the directory dialog with the nets' names and self addresses
// beside it for reference. On OK the caller takes the editor's programme (the directory and
// every reference renumbered).
class DirectoryDialog : public DirectoryListDialog
{
    Q_OBJECT
public:
    DirectoryDialog(DirectoryEditor& editor, QWidget* parent = nullptr);
};

} // namespace koral
