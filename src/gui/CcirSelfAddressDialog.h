#pragma once

#include "aledb/CcirSelfAddressEditor.h"

#include "gui/HelpButtonDialog.h"

class QLabel;
class QLineEdit;

namespace koral {

// "Self Address Configuration": the station's own CCIR identity in its two forms. On OK the
// caller takes editor().record().
class CcirSelfAddressDialog : public HelpButtonDialog
{
    Q_OBJECT
public:
    CcirSelfAddressDialog(CcirSelfAddressEditor& editor, QWidget* parent = nullptr);

    QLineEdit* edit4() const { return m_edit4; }
    QLineEdit* edit6() const { return m_edit6; }
    QLabel* warning() const { return m_warning; }

private:
    void showState();

    CcirSelfAddressEditor& m_editor;
    QLineEdit* m_edit4;
    QLineEdit* m_edit6;
    QLabel* m_warning;
};

} // namespace koral
