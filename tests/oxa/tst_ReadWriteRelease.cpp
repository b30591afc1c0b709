// Reads documents into a model, writes every document read and releases everything again. Run
// alone under the leak sanitizer (scripts/leakcheck.sh) it proves that a whole read-write cycle
// frees what it took; under the plain build it checks that what was written reads again.
// The large row (100 000 triangles and more) is generated only when ZENTRA_LEAKCHECK_LARGE is
// set, so that the everyday test run stays quick.

#include "ReaderFixture.h"

#include "oxa/OxaExamineContainer.h"
#include "oxaIO/OxaXmlWriter.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using fixture::Model;

class tst_ReadWriteRelease : public QObject {
    Q_OBJECT

private slots:
    void cycle_data();
    void cycle();
    void cleanupTestCase();

private:
    QTemporaryDir scratch;
    QString generated();
};

/// A building of some 105 000 triangles made by the project's document generator, or empty when
/// the generator is not beside the sources.
QString tst_ReadWriteRelease::generated() {
    const QString generator = QStringLiteral(ZENTRA_SOURCE_DIR) + "/../shared/tools/oxagen.py";
    if (!QFileInfo::exists(generator) || !scratch.isValid())
        return {};
    const QString path = scratch.filePath("large.oxaxml");
    const int status = QProcess::execute(
        "python3", {generator, "-o", path, "--storeys", "19", "--rooms-per-storey", "20", "--detail", "16"});
    return status == 0 ? path : QString();
}

void tst_ReadWriteRelease::cycle_data() {
    QTest::addColumn<QStringList>("files");
    const QDir shared(QStringLiteral(ZENTRA_SHARED_DATA));
    QTest::newRow("small") << QStringList{shared.filePath("small.oxaxml")};
    QStringList project;
    for (const QString& name : QDir(shared.filePath("sample-project")).entryList({"*.oxaxml"}, QDir::Files))
        project << shared.filePath("sample-project/" + name);
    QTest::newRow("sample project") << project;
    QTest::newRow("large") << QStringList{qEnvironmentVariableIsSet("ZENTRA_LEAKCHECK_LARGE") ? generated()
                                                                                              : QString()};
}

/// Every file is read into one model, as a project is; each document is written, and the
/// written file must read again into a fresh model.
void tst_ReadWriteRelease::cycle() {
    QFETCH(QStringList, files);
    if (files.isEmpty() || !QFileInfo::exists(files.first()))
        QSKIP("document not present (shared sample data, or ZENTRA_LEAKCHECK_LARGE and the generator)");
    QVERIFY(scratch.isValid());
    QStringList written;
    {
        Model model;
        for (const QString& file : files) {
            QString error;
            oxaIO::OxaObjects* document = model.Read(file, &error);
            QVERIFY2(document, qPrintable(error));
            const QString target = scratch.filePath(QString("written-%1").arg(QFileInfo(file).fileName()));
            std::wstring writeError;
            QVERIFY2(oxaIO::OxaXmlWriter(document).Write(target.toStdWString(), writeError),
                     qPrintable(QString::fromStdWString(writeError)));
            written << target;
        }
    }
    Model again;
    for (const QString& file : written) {
        QString error;
        QVERIFY2(again.Read(file, &error), qPrintable(error));
        QVERIFY(QFileInfo(file).size() > 0);
    }
}

/// The examination data is one instance per process; it is released like a host does on exit.
void tst_ReadWriteRelease::cleanupTestCase() {
    oxa::OxaExamineContainer::DeleteInstance();
}

QTEST_GUILESS_MAIN(tst_ReadWriteRelease)
#include "tst_ReadWriteRelease.moc"
