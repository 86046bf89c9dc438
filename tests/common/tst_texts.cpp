#include "common/Texts.h"
#include "support/Table.h"

#include <QtTest>

using namespace koral;
using namespace koral::test;

class TextsTest : public QObject
{
    Q_OBJECT
private slots:
    void numberedTexts_data()
    {
        columns<int, QString>("id", "expected");
        QTest::newRow("61466 keeps its two blanks")
            << 61466
            << "Radio does not respond to application messages. Check if the  \nradio is turned "
               "on and is connected to the computer properly.";
        QTest::newRow("unknown id") << 8 << "";
    }
    void numberedTexts()
    {
        auto [id, expected] = fetch<int, QString>("id", "expected");
        QCOMPARE(QString::fromStdString(std::string(text::byId(id))), expected);
    }
};

QTEST_GUILESS_MAIN(TextsTest)
#include "tst_texts.moc"
