#pragma once

#include "aledb/NetGlobalMembersEditor.h"

#include "gui/HelpButtonDialog.h"

#include <array>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;

namespace koral {

// "Net Global Members": the net's global member group, its name and 20 stations with their
// priority marks. On OK the caller takes editor().globals().
class NetGlobalMembersDialog : public HelpButtonDialog
{
    Q_OBJECT
public:
    NetGlobalMembersDialog(NetGlobalMembersEditor& editor, QWidget* parent = nullptr);

    QLineEdit* nameEdit() const { return m_name; }
    QComboBox* slotList(int slot) const { return m_slots[std::size_t(slot)]; }
    QCheckBox* priorityBox(int slot) const { return m_priorities[std::size_t(slot)]; }
    QLabel* warning() const { return m_warning; }

private:
    void showState();

    NetGlobalMembersEditor& m_editor;
    QLineEdit* m_name;
    std::array<QComboBox*, kAleGlobalMemberSlots> m_slots{};
    std::array<QCheckBox*, kAleGlobalMemberSlots> m_priorities{};
    QLabel* m_warning;
};

} // namespace koral
