#include "tavxmln/CXMLException.h"
#include "tavxmln/CXMLManager.h"
#include "tavxmln/CXMLSaxAttribut.h"
#include "tavxmln/CXMLSaxHandler.h"

#include <QTemporaryDir>
#include <QtTest>

#include <stdexcept>

using namespace tavxmln;

namespace {

/// Records every event as one line of text, e.g. "<a x=1>", "'text'", "</a>".
class RecordingHandler : public CXMLSaxHandler {
public:
    QStringList events;
    QList<quint64> offsets;
    QString throwAtElement; ///< throw a stop when this element starts
    bool throwOther = false;

    void StartDocument() override { events << "start"; }
    void EndDocument() override { events << "end"; }
    void StartElement(const wchar_t*, const wchar_t* localName, const wchar_t*,
                      CXMLSaxAttribut** attributes) override {
        QString line = "<" + QString::fromWCharArray(localName);
        for (CXMLSaxAttribut** a = attributes; *a; ++a)
            line +=
                " " + QString::fromWCharArray((*a)->Name()) + "=" + QString::fromWCharArray((*a)->Value());
        events << line + ">";
        offsets << GetSourceOffset();
        if (QString::fromWCharArray(localName) == throwAtElement) {
            if (throwOther)
                throw std::runtime_error("handler failure");
            throw CXMLException(CXMLException::Stop, L"");
        }
    }
    void EndElement(const wchar_t*, const wchar_t* localName, const wchar_t*) override {
        events << "</" + QString::fromWCharArray(localName) + ">";
    }
    void Characters(const wchar_t* text) override { events << "'" + QString::fromWCharArray(text) + "'"; }
    void StartCDATA() override { events << "cdata{"; }
    void EndCDATA() override { events << "}cdata"; }
};

void parse(const QByteArray& xml, CXMLSaxHandler& handler) {
    QByteArray copy = xml;
    CXMLManager::GetInstance()->LoadDocument(reinterpret_cast<unsigned char*>(copy.data()),
                                             static_cast<unsigned int>(copy.size()), &handler, true, false,
                                             nullptr, false, false);
}

} // namespace

class tst_XMLParser : public QObject {
    Q_OBJECT

private slots:
    void events_data() {
        QTest::addColumn<QByteArray>("xml");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("entity reference inside text")
            << QByteArray("<a name=\"x\">Ziegelwerk S\xc3\xbc"
                          "d GmbH &amp; Co. KG</a>")
            << QStringList{"start", "<a name=x>", QString::fromUtf8("'Ziegelwerk Süd GmbH & Co. KG'"), "</a>",
                           "end"};
        QTest::newRow("character references and attribute escapes")
            << QByteArray(
                   "<?xml version=\"1.0\" encoding=\"UTF-8\"?><a v=\"&lt;&#x2013;&quot;\">&#8364;1</a>")
            << QStringList{"start", QString::fromUtf8("<a v=<–\">"), QString::fromUtf8("'€1'"), "</a>",
                           "end"};
        QTest::newRow("cdata is its own run")
            << QByteArray("<p>a<![CDATA[x < y & z]]>b</p>")
            << QStringList{"start", "<p>", "'a'", "cdata{", "'x < y & z'", "}cdata", "'b'", "</p>", "end"};
        QTest::newRow("comments and processing instructions are skipped")
            << QByteArray("<r><!-- note --><?pi data?><e/></r>")
            << QStringList{"start", "<r>", "<e>", "</e>", "</r>", "end"};
        QTest::newRow("latin-1 declared encoding")
            << QByteArray("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>S\xfc"
                          "d</a>")
            << QStringList{"start", "<a>", QString::fromUtf8("'Süd'"), "</a>", "end"};
        QTest::newRow("long names and values")
            << QByteArray("<anElementNameLongerThanThirtyTwoCharacters aVeryLongAttributeNameIndeed=\"1 0 0 "
                          "0 1 0 0 0 1 "
                          "4512345.5 5412345.25 S\xc3\xbc"
                          "d\"/>")
            << QStringList{"start",
                           QString::fromUtf8(
                               "<anElementNameLongerThanThirtyTwoCharacters aVeryLongAttributeNameIndeed=1 0 "
                               "0 0 1 0 0 0 1 4512345.5 5412345.25 Süd>"),
                           "</anElementNameLongerThanThirtyTwoCharacters>", "end"};
        QTest::newRow("characters outside the basic plane")
            << QByteArray("<a>\xf0\x9f\x8f\x97</a>")
            << QStringList{"start", "<a>", QString::fromUtf8("'\xf0\x9f\x8f\x97'"), "</a>", "end"};
    }

    void events() {
        QFETCH(QByteArray, xml);
        QFETCH(QStringList, expected);
        RecordingHandler handler;
        parse(xml, handler);
        QCOMPARE(handler.events, expected);
    }

    void textAcrossChunksIsOneRun() {
        // The file is read in chunks of 1 MiB: a text of 3 MiB with entity references and
        // multi-byte characters straddles several chunk boundaries and still arrives whole.
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QString path = dir.filePath("long.xml");
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QByteArray piece("S\xc3\xbc"
                         "d &amp; ");
        QString expected;
        file.write("<r><t>");
        for (int i = 0; i < 3 * 1024 * 1024 / piece.size() + 7; ++i) {
            file.write(piece);
            expected += QString::fromUtf8("Süd & ");
        }
        file.write("</t><u/></r>");
        file.close();

        RecordingHandler handler;
        CXMLManager::GetInstance()->LoadDocument(path.toStdWString().c_str(), &handler, true, false, nullptr,
                                                 false, false);
        QCOMPARE(handler.events.size(), 9);
        QCOMPARE(handler.events.at(3).size(), expected.size() + 2);
        QVERIFY(handler.events.at(3) == "'" + expected + "'");
        QCOMPARE(handler.events.at(5), QString("<u>"));
    }

    void malformed_data() {
        QTest::addColumn<QByteArray>("xml");
        QTest::addColumn<QString>("what");
        QTest::newRow("mismatched tag")
            << QByteArray("<a>\n  <b>\n</a>") << "mismatched tag at line 3, column 3";
        QTest::newRow("truncated") << QByteArray("<a><b>text") << "no element found at line 1";
        QTest::newRow("truncated inside a tag") << QByteArray("<a><b x=\"1") << "at line 1";
        QTest::newRow("not xml") << QByteArray("solid cube\nfacet normal 0 0 1")
                                 << "syntax error at line 1, column 1";
        QTest::newRow("empty") << QByteArray() << "no element found";
        QTest::newRow("bad utf-8") << QByteArray("<a>\xff\xfe</a>")
                                   << "not well-formed (invalid token) at line 1";
        QTest::newRow("unknown encoding")
            << QByteArray("<?xml version=\"1.0\" encoding=\"X-NOSUCH\"?><a/>") << "encoding";
        QTest::newRow("two roots") << QByteArray("<a/><b/>") << "junk after document element";
        QTest::newRow("undefined entity") << QByteArray("<a>&nbsp;</a>") << "undefined entity";
    }

    void malformed() {
        QFETCH(QByteArray, xml);
        QFETCH(QString, what);
        RecordingHandler handler;
        try {
            parse(xml, handler);
            QFAIL("no exception");
        } catch (const CXMLException& exception) {
            QCOMPARE(exception.code(), int(CXMLException::ParseError));
            const QString text = QString::fromWCharArray(exception.text());
            QVERIFY2(text.startsWith("buffer: ") && text.contains(what), qPrintable(text));
        }
        QVERIFY(!handler.events.contains("end"));
    }

    void missingFile() {
        RecordingHandler handler;
        try {
            CXMLManager::GetInstance()->LoadDocument(L"/no/such/folder/model.oxaxml", &handler, true, false,
                                                     nullptr, false, false);
            QFAIL("no exception");
        } catch (const CXMLException& exception) {
            QCOMPARE(exception.code(), int(CXMLException::FileError));
            QVERIFY(QString::fromWCharArray(exception.text()).startsWith("/no/such/folder/model.oxaxml: "));
        }
        QVERIFY(handler.events.isEmpty());
    }

    void handlerStop_data() {
        QTest::addColumn<bool>("throwOther");
        QTest::newRow("deliberate stop") << false;
        QTest::newRow("foreign exception") << true;
    }

    void handlerStop() {
        QFETCH(bool, throwOther);
        RecordingHandler handler;
        handler.throwAtElement = "b";
        handler.throwOther = throwOther;
        // The malformed tail proves that the parse really stopped at "b".
        const QByteArray xml("<a><b/><c/></a><<<");
        if (throwOther) {
            QVERIFY_EXCEPTION_THROWN(parse(xml, handler), std::runtime_error);
        } else {
            try {
                parse(xml, handler);
                QFAIL("no exception");
            } catch (const CXMLException& exception) {
                QCOMPARE(exception.code(), 0);
                QCOMPARE(QString::fromWCharArray(exception.text()), QString());
            }
        }
        QCOMPARE(handler.events, (QStringList{"start", "<a>", "<b>"}));
    }

    void sourceOffset() {
        RecordingHandler handler;
        parse("<a>\n  <b/>\n  <c x=\"\xc3\xbc\"/><d/></a>", handler);
        QCOMPARE(handler.offsets, (QList<quint64>{0, 6, 13, 24}));
        QCOMPARE(handler.GetSourceOffset(), quint64(0));
    }

    void data_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("ok");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << "" << true << QByteArray();
        QTest::newRow("one byte") << "/w==" << true << QByteArray("\xff");
        QTest::newRow("two bytes") << "AAE=" << true << QByteArray("\x00\x01", 2);
        QTest::newRow("png head, wrapped")
            << "iVBO\n  Rw0K\r\n  GgoaAA==" << true << QByteArray("\x89PNG\r\n\x1a\n\x1a\x00", 10);
        QTest::newRow("bad character") << "iVB*" << false << QByteArray();
        QTest::newRow("bad length") << "iVBOR" << false << QByteArray();
        QTest::newRow("data after padding") << "AA==AAAA" << false << QByteArray();
    }

    void data() {
        QFETCH(QString, text);
        QFETCH(bool, ok);
        QFETCH(QByteArray, bytes);
        unsigned char* data = reinterpret_cast<unsigned char*>(1);
        unsigned long size = 99;
        QCOMPARE(CXMLSaxHandler::GetData(text.toStdWString().c_str(), data, size), ok);
        QCOMPARE(QByteArray(reinterpret_cast<const char*>(data), int(size)), bytes);
        QCOMPARE(data == nullptr, bytes.isEmpty());
        delete[] data;
    }
};

QTEST_GUILESS_MAIN(tst_XMLParser)
#include "tst_XMLParser.moc"
