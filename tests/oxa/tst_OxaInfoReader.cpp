#include "oxa/OxaInfoReader.h"
#include "support/Files.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

using oxa::OxaInfoReader;
using namespace oxaIO;

class tst_OxaInfoReader : public QObject {
    Q_OBJECT

    QTemporaryDir dir;

    QString write(const QString& name, const QByteArray& xml) {
        const QString path = dir.filePath(name);
        return fixture::WriteFile(path, xml) ? path : QString();
    }

private slots:
    void initTestCase() { QVERIFY(dir.isValid()); }

    void heads_data() {
        QTest::addColumn<QByteArray>("xml");
        QTest::addColumn<bool>("valid");
        QTest::addColumn<QString>("projectId");
        QTest::addColumn<QString>("created");
        QTest::addColumn<QString>("sections");

        QTest::newRow("full head") << QByteArray(R"(<?xml version="1.0" encoding="UTF-8"?>
<objects projectID="PRJ-1" createdBy="architecture" sourceApp="app 1.0" sourceFormat="fmt" created="2024-06-01T12:00:00" oxaversion="1.5">
  <content version="1.2"><section name="objectSection"/><section name="topologySection"/><section name="activitySection"/></content>
</objects>)") << true << "PRJ-1"
                                   << "2024-06-01T12:00:00" << "objectSection; topologySection; activitySection";
        QTest::newRow("empty content")
            << QByteArray(R"(<objects projectID="P" created="not a date"><content/></objects>)") << true << "P"
            << "not a date" << "";
        QTest::newRow("missing attributes stay empty")
            << QByteArray(R"(<objects><content/></objects>)") << true << "" << "" << "";
        QTest::newRow("malformed inside content")
            << QByteArray(R"(<objects projectID="P"><content><section name="objectSection"></content></objects>)")
            << false << "P" << "" << "objectSection";
        QTest::newRow("truncated before the end of content")
            << QByteArray(R"(<objects projectID="P" created="2024"><content><section name="fitSection"/>)")
            << false << "P" << "2024" << "fitSection";
        QTest::newRow("not xml") << QByteArray("3DS\x00\x01\x02", 6) << false << "" << "" << "";
    }

    void heads() {
        QFETCH(QByteArray, xml);
        QFETCH(bool, valid);
        QFETCH(QString, projectId);
        QFETCH(QString, created);
        QFETCH(QString, sections);
        const QString path = write(QTest::currentDataTag() + QString(".oxaxml"), xml);
        const OxaInfoReader reader(path);
        QCOMPARE(reader.IsValid(), valid);
        QCOMPARE(QString::fromStdWString(reader.GetProjectID()), projectId);
        QCOMPARE(reader.GetCreated(), created);
        QCOMPARE(reader.GetSections(), sections);
        QCOMPARE(reader.ErrorText().isEmpty(), valid);
        if (!valid)
            QVERIFY2(reader.ErrorText().startsWith(path + ": "), qPrintable(reader.ErrorText()));
        QCOMPARE(reader.HasSection(stObjectSection), sections.contains("objectSection"));
        QVERIFY(!reader.HasSection(stNone));
    }

    void stopsAtTheEndOfContent() {
        // Everything after content is broken: a reader that went on would fail.
        const QString path = write(
            "stops.oxaxml",
            R"(<objects projectID="P"><content><section name="nonsense"/><section name="loggingSection"/></content><objectSection><<<broken)");
        const OxaInfoReader reader(path);
        QVERIFY(reader.IsValid());
        QCOMPARE(reader.GetSectionTypes(), (std::vector<ESectionType>{stNone, stLoggingSection}));

        const OxaInfoReader missing(dir.filePath("no-such-file.oxaxml"));
        QVERIFY(!missing.IsValid());
        QVERIFY(missing.ErrorText().contains("no-such-file.oxaxml"));
    }

    void sharedSamples_data() {
        QTest::addColumn<QString>("document");
        QTest::newRow("small") << "small";
        QTest::newRow("small-quirks") << "small-quirks";
    }

    void sharedSamples() {
        QFETCH(QString, document);
        const QString folder = ZENTRA_SHARED_DATA;
        const QByteArray manifest = fixture::ReadFile(folder + "/" + document + ".manifest.json");
        if (manifest.isEmpty())
            QSKIP("shared sample data is not available");
        const QJsonObject summary =
            QJsonDocument::fromJson(manifest).object()["documents"].toArray().at(0).toObject()["summary"].toObject();
        QVERIFY(!summary.isEmpty());

        const OxaInfoReader reader(folder + "/" + document + ".oxaxml");
        QVERIFY(reader.IsValid());
        const auto S = [](const std::wstring& value) { return QString::fromStdWString(value); };
        const QStringList keys{"projectID", "createdBy", "sourceApp", "sourceFormat", "created",
                               "version", "sourceFileName", "changedBy", "changed"};
        const QStringList read{S(reader.GetProjectID()), S(reader.GetCreatedBy()), S(reader.GetSourceApp()),
                               S(reader.GetSourceFormat()), reader.GetCreated(), S(reader.GetVersion()),
                               S(reader.GetSourceFileName()), S(reader.GetChangedBy()), reader.GetChanged()};
        QStringList head;
        for (const QString& key : keys)
            head << summary[key].toString();
        QCOMPARE(read, head);
        std::vector<ESectionType> expected;
        for (const QJsonValue& type : summary["section_types"].toArray())
            expected.push_back(ESectionType(type.toInt()));
        QCOMPARE(reader.GetSectionTypes(), expected);
    }
};

QTEST_GUILESS_MAIN(tst_OxaInfoReader)
#include "tst_OxaInfoReader.moc"
