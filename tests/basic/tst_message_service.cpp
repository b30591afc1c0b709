#include "basic/MessageService.h"

#include <QtTest>

#include <functional>

using basic::MessageService;
using ChannelCall = std::function<void(const MessageService&)>;
Q_DECLARE_METATYPE(ChannelCall)

/// The channel as a host sees it: which signals arrive, in which order, with which arguments.
class tst_message_service : public QObject {
    Q_OBJECT

    /// Writes every signal of the channel as one line "name(arguments)" in arrival order.
    static QStringList record(MessageService& service, const std::function<void()>& action) {
        QStringList log;
        auto text = [](const QString& t) { return t.isNull() ? QString("null") : '"' + t + '"'; };
        connect(&service, &MessageService::message, [&](QString t) { log << "message(" + text(t) + ")"; });
        connect(&service, &MessageService::warning, [&](QString t) { log << "warning(" + text(t) + ")"; });
        connect(&service, &MessageService::error, [&](QString t) { log << "error(" + text(t) + ")"; });
        connect(&service, &MessageService::progress,
                [&](double v) { log << QString("progress(%1)").arg(v); });
        connect(&service, &MessageService::progress_message,
                [&](QString t) { log << "progress_message(" + text(t) + ")"; });
        connect(&service, &MessageService::ping, [&]() { log << "ping()"; });
        connect(&service, &MessageService::ptr, [&](void* p) { log << QString("ptr(%1)").arg(quintptr(p)); });
        connect(&service, &MessageService::instance_progress,
                [&](ulong id, double v) { log << QString("instance_progress(%1,%2)").arg(id).arg(v); });
        connect(&service, &MessageService::instance_progress_message, [&](ulong id, QString t) {
            log << QString("instance_progress_message(%1,%2)").arg(id).arg(text(t));
        });
        action();
        return log;
    }

private slots:
    void emits_by_instance_id_data() {
        QTest::addColumn<ulong>("instance");
        QTest::addColumn<ChannelCall>("call");
        QTest::addColumn<QStringList>("expected");

        QTest::newRow("instance 7, progress with non-ASCII text")
            << 7ul << ChannelCall([](const MessageService& s) { s.show_progress(0.5, "Wände – 3 m²"); })
            << QStringList({"instance_progress(7,0.5)", "instance_progress_message(7,\"Wände – 3 m²\")"});
        QTest::newRow("instance 7, progress with null text")
            << 7ul << ChannelCall([](const MessageService& s) { s.show_progress(0.5, QString()); })
            << QStringList({"instance_progress(7,0.5)"});
        QTest::newRow("instance 7, progress message stays plain")
            << 7ul << ChannelCall([](const MessageService& s) { s.show_progress_message("x"); })
            << QStringList({"progress_message(\"x\")"});
        QTest::newRow("no instance, empty text still counts")
            << 0ul << ChannelCall([](const MessageService& s) { s.show_progress(0.5, ""); })
            << QStringList({"progress(0.5)", "progress_message(\"\")"});
        QTest::newRow("no instance, null text")
            << 0ul << ChannelCall([](const MessageService& s) { s.show_progress(1, QString()); })
            << QStringList({"progress(1)"});
        QTest::newRow("plain lines ignore the instance") << 7ul << ChannelCall([](const MessageService& s) {
            s.send_message("m");
            s.send_warning("w");
            s.send_error("e");
            s.send_ping();
            s.send_ptr(reinterpret_cast<void*>(16));
        }) << QStringList({"message(\"m\")", "warning(\"w\")", "error(\"e\")", "ping()", "ptr(16)"});
    }

    void emits_by_instance_id() {
        QFETCH(ulong, instance);
        QFETCH(ChannelCall, call);
        QFETCH(QStringList, expected);
        MessageService service;
        service.setInstanceID(instance);
        QCOMPARE(record(service, [&] { call(service); }), expected);
    }
};

QTEST_GUILESS_MAIN(tst_message_service)
#include "tst_message_service.moc"
