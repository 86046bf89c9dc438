#pragma once

#include <QDialog>

class QLabel;
class QTimer;

namespace koral {

// A short-lived modeless notice over the main window: the start-up notice, "Please wait !  "
// and the completion notice. It closes itself after its time (0: stays until closed).
class Notice : public QDialog
{
    Q_OBJECT
public:
    Notice(QWidget* parent, const QString& text, int milliseconds, bool withPicture = false);
    QString text() const;

private:
    QLabel* m_text;
};

} // namespace koral
