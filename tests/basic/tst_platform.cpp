#include "basic/Exception.h"
#include "basic/PlatformCommonHelper.h"
#include "basic/StdProgress.h"
#include "basic/Zentra.h"

#include <QGuiApplication>
#include <QtTest>

class tst_platform : public QObject {
    Q_OBJECT
private slots:
    void application_id_needs_the_variable() {
        const QString before = QGuiApplication::desktopFileName();
        qunsetenv("TAVLENS_APPLICATIONID");
        PlatformCommonHelper::SetCurrentProcessApplicationId();
        QCOMPARE(QGuiApplication::desktopFileName(), before);
        qputenv("TAVLENS_APPLICATIONID", "");
        PlatformCommonHelper::SetCurrentProcessApplicationId();
        QCOMPARE(QGuiApplication::desktopFileName(), before);
        qputenv("TAVLENS_APPLICATIONID", "Review");
        PlatformCommonHelper::SetCurrentProcessApplicationId();
        QCOMPARE(QGuiApplication::desktopFileName(), QString("TAV.Lens.ApplicationId.Review"));
    }

    void exceptions_carry_their_text() {
        try {
            throw basic::Exception("Wände – 3 m²");
        } catch (const basic::Exception& e) {
            QCOMPARE(e.text(), QString("Wände – 3 m²"));
        }
    }

    void module_object_logs_its_life() {
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression("^Zentra Constructor 0x[0-9a-f]+\\n$"));
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression("^Zentra Destructor 0x[0-9a-f]+\\n$"));
        { Zentra module; }
    }
};

QTEST_GUILESS_MAIN(tst_platform)
#include "tst_platform.moc"
