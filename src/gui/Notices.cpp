#include "gui/Notices.h"

#include "gui/ToolbarImages.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

namespace koral {

Notice::Notice(QWidget* parent, const QString& text, int milliseconds, bool withPicture)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(false);
    setObjectName("notice");
    auto* frame = new QFrame(this);
    frame->setFrameShape(QFrame::Box);
    frame->setLineWidth(2);
    auto* row = new QHBoxLayout(frame);
    if (withPicture) {
        auto* picture = new QLabel(frame);
        picture->setPixmap(
            ToolbarImages::commandIcon(QStringLiteral("HF"), QColor(0x64, 0xC8, 0xFF))
                .pixmap(64, 64));
        row->addWidget(picture);
    }
    m_text = new QLabel(text, frame);
    QFont font = m_text->font();
    font.setPointSizeF(font.pointSizeF() * 1.3);
    font.setBold(true);
    m_text->setFont(font);
    m_text->setMargin(16);
    row->addWidget(m_text);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(frame);
    if (milliseconds > 0)
        QTimer::singleShot(milliseconds, this, &QDialog::close);
}

QString Notice::text() const
{
    return m_text->text();
}

} // namespace koral
