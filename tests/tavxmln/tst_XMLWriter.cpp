#include "tavxmln/CXMLAttribut.h"
#include "tavxmln/CXMLException.h"
#include "tavxmln/CXMLManager.h"
#include "tavxmln/CXMLSaxAttribut.h"
#include "tavxmln/CXMLSaxHandler.h"
#include "tavxmln/CXMLSaxWriter.h"

#include <QTemporaryDir>
#include <QtTest>

#include <functional>
#include <limits>
#include <memory>
#include <sstream>
#include <type_traits>

using namespace tavxmln;

namespace {

/// Collects the attribute values and the text of every element a parse reports.
class CollectingHandler : public CXMLSaxHandler {
public:
    QStringList values;
    QString text;
    void StartElement(const wchar_t*, const wchar_t*, const wchar_t*, CXMLSaxAttribut** attributes) override {
        for (CXMLSaxAttribut** a = attributes; *a; ++a)
            values << QString::fromWCharArray((*a)->Value());
    }
    void Characters(const wchar_t* chars) override { text += QString::fromWCharArray(chars); }
};

CollectingHandler Parse(std::string xml) {
    CollectingHandler handler;
    CXMLManager::GetInstance()->LoadDocument(reinterpret_cast<unsigned char*>(xml.data()),
                                             static_cast<unsigned int>(xml.size()), &handler, true, false,
                                             nullptr, false, false);
    return handler;
}

/// Writes `<e v="value">value</e>` without layout and gives the bytes.
std::string WriteValueTwice(const std::wstring& value) {
    std::ostringstream out;
    CXMLSaxWriter writer;
    writer.StartDocument(&out, false, false);
    CXMLAttribut attribute(L"v", value.c_str());
    CXMLAttribut* attributes[] = {&attribute, nullptr};
    writer.StartElement(L"e", attributes);
    writer.Characters(value.c_str());
    writer.EndElement();
    writer.EndDocument();
    return out.str();
}

/// Opens the writer's way of writing numbers straight into a start tag.
class NumberWriter : public CXMLSaxWriter {
public:
    using CXMLSaxWriter::_DoubleAttribute;
    using CXMLSaxWriter::_DoublesAttribute;
    using CXMLSaxWriter::_LongAttribute;
    using CXMLSaxWriter::_LongsAttribute;
    using CXMLSaxWriter::_OpenStartTag;
};

/// `<e a="value"/>` as the attribute objects write it.
std::string WriteAttributeObject(const std::function<void(CXMLAttribut&)>& setValue) {
    std::ostringstream out;
    CXMLSaxWriter writer;
    writer.StartDocument(&out, false, false);
    CXMLAttribut attribute(L"a", L"");
    setValue(attribute);
    CXMLAttribut* attributes[] = {&attribute, nullptr};
    writer.StartElement(L"e", attributes);
    writer.EndElement();
    writer.EndDocument();
    return out.str();
}

/// The same element with the number formatted straight into the output.
std::string WriteNumber(const std::function<void(NumberWriter&)>& addAttribute) {
    std::ostringstream out;
    NumberWriter writer;
    writer.StartDocument(&out, false, false);
    writer._OpenStartTag(L"e");
    addAttribute(writer);
    writer.EndElement();
    writer.EndDocument();
    return out.str();
}

} // namespace

class tst_XMLWriter : public QObject {
    Q_OBJECT

private slots:
    void layout() {
        std::ostringstream out;
        CXMLSaxWriter writer;
        writer.StartDocument(&out, true, true);
        CXMLAttribut version(L"version", L"1.2");
        CXMLAttribut* attributes[] = {&version, nullptr};
        writer.StartElement(L"objects", nullptr);
        writer.StartElement(L"content", attributes);
        writer.StartElement(L"section", nullptr);
        writer.EndElement();
        writer.EndElement();
        writer.StartElement(L"property", nullptr);
        writer.Characters(L"text");
        writer.EndElement();
        writer.StartElement(L"result", nullptr);
        writer.Characters(L"");
        writer.EndElement();
        writer.StartElement(L"n", nullptr);
        writer.Double(0.1);
        writer.EndElement();
        writer.EndElement();
        writer.EndDocument();
        QCOMPARE(QString::fromStdString(out.str()), QString("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                                            "<objects>\n"
                                                            "  <content version=\"1.2\">\n"
                                                            "    <section/>\n"
                                                            "  </content>\n"
                                                            "  <property>text</property>\n"
                                                            "  <result></result>\n"
                                                            "  <n>0.1</n>\n"
                                                            "</objects>\n"));
        QCOMPARE(writer.BytesWritten(), std::uint64_t(out.str().size()));
    }

    void escaping_data() {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("written");
        QTest::newRow("markup") << "a<b>&\"c'"
                                << "a&lt;b&gt;&amp;&quot;c'";
        QTest::newRow("line breaks and tabs") << "1\t2\n3\r4"
                                              << "1&#9;2&#10;3&#13;4";
        QTest::newRow("non-ASCII") << QString::fromUtf8("Süd – €") << QString::fromUtf8("Süd – €");
        QTest::newRow("outside the basic plane")
            << QString::fromUtf8("\xf0\x9f\x8f\x97") << QString::fromUtf8("\xf0\x9f\x8f\x97");
    }

    void escaping() {
        // Attribute values and text come back from a parse exactly as they were given.
        QFETCH(QString, value);
        QFETCH(QString, written);
        const std::string xml = WriteValueTwice(value.toStdWString());
        QVERIFY2(QString::fromStdString(xml).startsWith("<e v=\"" + written + "\">"), xml.c_str());
        const CollectingHandler parsed = Parse(xml);
        QCOMPARE(parsed.values, QStringList{value});
        QCOMPARE(parsed.text, value);
    }

    void textThatXmlCannotCarry() {
        // Control characters and non-characters have no form in XML 1.0: they become U+FFFD, and
        // the document stays readable.
        std::wstring value = L"a";
        value += wchar_t(1);
        value += L'b';
        value += wchar_t(0xFFFF);
        value += wchar_t(0x1F);
        QString expected = QString("a") + QChar(0xFFFD) + "b" + QChar(0xFFFD) + QChar(0xFFFD);
        if (std::is_signed<wchar_t>::value) {
            // A negative value is no character at all.
            value += wchar_t(-1);
            expected += QChar(0xFFFD);
        }
        const CollectingHandler parsed = Parse(WriteValueTwice(value));
        QCOMPARE(parsed.values, QStringList{expected});
        QCOMPARE(parsed.text, expected);
    }

    void attributeCopiesItsTexts() {
        std::wstring name = L"name";
        std::wstring longValue(300, L'x');
        CXMLAttribut attribute(name.c_str(), longValue.c_str());
        name[0] = L'N';
        longValue[0] = L'y';
        QCOMPARE(QString::fromWCharArray(attribute.Name()), QString("name"));
        QCOMPARE(QString::fromWCharArray(attribute.Value()), QString(300, 'x'));
        attribute.SetValue(nullptr);
        QCOMPARE(QString::fromWCharArray(attribute.Value()), QString());
    }

    void numbersStraightIntoTheOutput_data() {
        QTest::addColumn<double>("number");
        QTest::addColumn<QString>("text");
        QTest::newRow("short decimal") << 0.1 << "0.1";
        QTest::newRow("negative zero") << -0.0 << "-0";
        QTest::newRow("small") << -2.5e-7 << "-2.5e-07";
        QTest::newRow("large") << 1e21 << "1e+21";
        QTest::newRow("all digits") << 0.1 + 0.2 << "0.30000000000000004";
        QTest::newRow("smallest normal") << std::numeric_limits<double>::min() << "2.2250738585072014e-308";
        QTest::newRow("largest") << -std::numeric_limits<double>::max() << "-1.7976931348623157e+308";
        QTest::newRow("NaN") << std::numeric_limits<double>::quiet_NaN() << "NaN";
        QTest::newRow("infinity") << std::numeric_limits<double>::infinity() << "INF";
        QTest::newRow("negative infinity") << -std::numeric_limits<double>::infinity() << "-INF";
    }

    void numbersStraightIntoTheOutput() {
        // A writer that formats numbers itself writes exactly what the attribute objects write.
        QFETCH(double, number);
        QFETCH(QString, text);
        const std::string expected = "<e a=\"" + text.toStdString() + "\"/>\n";
        QCOMPARE(WriteAttributeObject([&](CXMLAttribut& a) { a.SetDoubleValue(number); }), expected);
        QCOMPARE(WriteNumber([&](NumberWriter& w) { w._DoubleAttribute(L"a", number); }), expected);
        for (const long integer : {0L, -42L, long(std::numeric_limits<int>::min()),
                                   std::numeric_limits<long>::max(), std::numeric_limits<long>::min()}) {
            QCOMPARE(WriteNumber([&](NumberWriter& w) { w._LongAttribute(L"a", integer); }),
                     WriteAttributeObject([&](CXMLAttribut& a) { a.SetLongValue(integer); }));
        }
    }

    void numberListsStraightIntoTheOutput() {
        const double reals[] = {0.5, -0.0, 1e300, 3};
        const int integers[] = {0, -7, 2147483647};
        QCOMPARE(WriteNumber([&](NumberWriter& w) {
                     w._DoublesAttribute(L"r", reals, 4);
                     w._LongsAttribute(L"i", integers, 3);
                     w._LongsAttribute(L"none", integers, 0);
                 }),
                 std::string("<e r=\"0.5 -0 1e+300 3\" i=\"0 -7 2147483647\" none=\"\"/>\n"));
    }

    void data() {
        QByteArray bytes;
        for (int i = 0; i < 1000; ++i)
            bytes += char(i * 7 % 256);
        const auto* raw = reinterpret_cast<const unsigned char*>(bytes.constData());
        std::ostringstream out;
        CXMLSaxWriter writer;
        writer.StartDocument(&out, false, false);
        writer.StartElement(L"r", nullptr);
        writer.StartElement(L"b", nullptr);
        writer.Data(raw, bytes.size(), true);
        writer.EndElement();
        writer.StartElement(L"h", nullptr);
        writer.Data(raw, 3, false);
        writer.EndElement();
        writer.EndElement();
        writer.EndDocument();

        const std::string xml = out.str();
        QVERIFY(xml.find("<h>00070e</h>") != std::string::npos);
        const std::size_t start = xml.find("<b>") + 3;
        const std::wstring base64 =
            QString::fromStdString(xml.substr(start, xml.find("</b>") - start)).toStdWString();
        unsigned char* decoded = nullptr;
        unsigned long size = 0;
        QVERIFY(CXMLSaxHandler::GetData(base64.c_str(), decoded, size));
        const QByteArray back(reinterpret_cast<const char*>(decoded), int(size));
        delete[] decoded;
        QCOMPARE(back, bytes);
    }

    void outputLargerThanTheBuffer() {
        // Several buffer blocks, with multi-byte characters and escapes straddling their borders.
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const std::wstring path = dir.filePath("big.xml").toStdWString();
        const std::wstring piece = L"Süd & <Nord> €";
        std::wstring text;
        for (int i = 0; i < 60000; ++i)
            text += piece;
        {
            CXMLSaxWriter writer;
            writer.StartDocument(path.c_str(), true);
            writer.StartElement(L"t", nullptr);
            writer.Characters(text.c_str());
            writer.EndElement();
            writer.EndDocument();
            QVERIFY(writer.BytesWritten() > 3 * 256 * 1024);
        }
        CollectingHandler handler;
        CXMLManager::GetInstance()->LoadDocument(path.c_str(), &handler, true, false, nullptr, false, false);
        QCOMPARE(handler.text.size(), int(text.size()));
        QVERIFY(handler.text.toStdWString() == text);
    }

    void writeFailures_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("reason");
        QTest::newRow("missing folder") << "/nonexistent-folder-of-zentra/x.xml"
                                        << "No such file or directory";
        QTest::newRow("full device") << "/dev/full"
                                     << "No space left on device";
    }

    void writeFailures() {
        // Opening fails at once; a full device fails when the first block goes out, at the latest
        // at the end of the document. Either way the text names the file and the system's reason.
        QFETCH(QString, path);
        QFETCH(QString, reason);
        if (!QFileInfo::exists(path) && path.startsWith("/dev/"))
            QSKIP("this system has no full device");
        CXMLSaxWriter writer;
        try {
            writer.StartDocument(path.toStdWString().c_str(), true);
            writer.StartElement(L"r", nullptr);
            for (int i = 0; i < 100000; ++i) {
                writer.StartElement(L"e", nullptr);
                writer.EndElement();
            }
            writer.EndElement();
            writer.EndDocument();
            QFAIL("no failure");
        } catch (const CXMLException& exception) {
            const QString text = QString::fromWCharArray(exception.text());
            QCOMPARE(exception.code(), int(CXMLException::FileError));
            QVERIFY2(text.startsWith(path + ": "), qPrintable(text));
            QVERIFY2(text.contains(reason, Qt::CaseInsensitive), qPrintable(text));
        }
    }

    void failingStream() {
        std::ostringstream out;
        out.setstate(std::ios::badbit);
        CXMLSaxWriter writer;
        writer.StartDocument(&out, true, true);
        writer.StartElement(L"r", nullptr);
        writer.EndElement();
        try {
            writer.EndDocument();
            QFAIL("no failure");
        } catch (const CXMLException& exception) {
            QCOMPARE(exception.code(), int(CXMLException::FileError));
            QCOMPARE(QString::fromWCharArray(exception.text()),
                     QString("stream: cannot write to the stream"));
        }
    }

    void callsOutOfOrder() {
        std::ostringstream out;
        NumberWriter writer;
        const auto code = [](const std::function<void()>& call) {
            try {
                call();
            } catch (const CXMLException& exception) {
                return exception.code();
            }
            return -1;
        };
        QCOMPARE(code([&] { writer.StartElement(L"e", nullptr); }), CXMLSaxWriter::UsageError);
        writer.StartDocument(&out, false, false);
        QCOMPARE(code([&] { writer.StartDocument(&out, false, false); }), CXMLSaxWriter::UsageError);
        QCOMPARE(code([&] { writer.EndElement(); }), CXMLSaxWriter::UsageError);
        QCOMPARE(code([&] { writer.Characters(L"x"); }), CXMLSaxWriter::UsageError);
        writer.StartElement(L"e", nullptr);
        writer.Characters(L"x");
        // Attributes belong into a start tag: after text they are a call out of order.
        QCOMPARE(code([&] { writer._LongAttribute(L"a", 1); }), CXMLSaxWriter::UsageError);
        QCOMPARE(code([&] { writer.EndDocument(); }), CXMLSaxWriter::UsageError);
        writer.EndElement();
        writer.EndDocument();
        QCOMPARE(QString::fromStdString(out.str()), QString("<e>x</e>\n"));
    }
};

QTEST_GUILESS_MAIN(tst_XMLWriter)
#include "tst_XMLWriter.moc"
