// Lays out the user manual (Markdown with pictures) into a PDF: koral-make-manual IN.md OUT.pdf

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QUrl>

#include <algorithm>
#include <cstdio>

int main(int argc, char* argv[])
{
    QGuiApplication app(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "usage: koral-make-manual MANUAL.md OUTPUT.pdf\n");
        return 2;
    }
    QFile input(QString::fromLocal8Bit(argv[1]));
    if (!input.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "koral-make-manual: cannot read %s\n", argv[1]);
        return 2;
    }
    QTextDocument document;
    // Pictures are named relative to the manual.
    document.setBaseUrl(QUrl::fromLocalFile(QFileInfo(input).absolutePath() + '/'));
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSize(10);
    document.setDefaultFont(font);
    document.setDefaultStyleSheet(QStringLiteral("h1 { color: #1a4d80; } h2 { color: #1a4d80; } "
                                                 "code { font-family: 'DejaVu Sans Mono'; }"));
    document.setMarkdown(QString::fromUtf8(input.readAll()));

    // Load every picture up front, and fail loudly on a missing one: a manual whose pictures
    // silently vanish is worse than a build that stops.
    const QDir folder = QFileInfo(input).absoluteDir();
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextCharFormat format = it.fragment().charFormat();
            if (!format.isImageFormat())
                continue;
            const QString name = format.toImageFormat().name();
            QImage image(folder.filePath(name));
            if (image.isNull()) {
                std::fprintf(stderr, "koral-make-manual: cannot load the picture %s\n",
                             qPrintable(name));
                return 1;
            }
            document.addResource(QTextDocument::ImageResource, QUrl(name), image);
            // Wide screenshots are shrunk to the text width (points, as the layout for the
            // page counts them); small ones keep their size.
            constexpr double kTextWidth = 480;
            const double scale = std::min(1.0, kTextWidth / image.width());
            QTextImageFormat sized = format.toImageFormat();
            sized.setWidth(image.width() * scale);
            sized.setHeight(image.height() * scale);
            QTextCursor cursor(&document);
            cursor.setPosition(it.fragment().position());
            cursor.setPosition(it.fragment().position() + it.fragment().length(),
                               QTextCursor::KeepAnchor);
            cursor.setCharFormat(sized);
        }
    }

    QPdfWriter writer(QString::fromLocal8Bit(argv[2]));
    writer.setTitle(QStringLiteral("KORAL Control Center - User Manual"));
    writer.setCreator(QStringLiteral("KORAL Control Center"));
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF(18, 18, 18, 18), QPageLayout::Millimeter);
    writer.setResolution(150);
    document.print(&writer);
    if (!QFileInfo::exists(QString::fromLocal8Bit(argv[2]))) {
        std::fprintf(stderr, "koral-make-manual: cannot write %s\n", argv[2]);
        return 1;
    }
    return 0;
}
