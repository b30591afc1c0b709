#include "model/SampleObject.h"
#include "support/OutputCapture.h"

#include "model/RepositoryP.h"
#include "model/System.h"
#include "model/algorithm_library.h"
#include "model/exceptions.h"
#include "model/object_xml.h"
#include "model/string_list.h"

#include <QtTest>

using namespace model;

namespace {

/// A sample with a value in every kind, changed through the user-level setters so that the
/// object and its properties carry versions above 0.
void fill(SampleObject& sample) {
    static_cast<Primitive&>(sample.property("name")).set("Wall 7");
    static_cast<Reference&>(sample.property("next")).set("sample-2");
    sample.items = QStringList{"first", "second", "third"};
    sample.attributes = {{"colour", "red"}, {"fire rating", "F90"}};
    sample.tags = QStringList{"outer", "load-bearing"};
    sample.increase_property_version("items");
    sample.increase_property_version("tags");
    sample.increase_property_version("attributes");
}

QString wrap(const QString& body) {
    return "<object ID=\"s\" VERSION=\"3\">\n<classname>test::Sample</classname>\n" + body + "\n</object>";
}

} // namespace

class tst_object_xml : public QObject {
    Q_OBJECT
private slots:
    void round_trip_of_every_kind();
    void text_is_trimmed_and_element_names_folded();
    void entries_restore_only_inside_the_matching_element_data();
    void entries_restore_only_inside_the_matching_element();
    void unknown_property_throws_and_keeps_what_came_before_data();
    void unknown_property_throws_and_keeps_what_came_before();
    void malformed_text_stops_silently_and_still_sets_the_version();
    void xml_to_object_makes_a_registered_plain_object();
    void xml_to_object_leaves_nothing_behind_on_failure();
    void extractors_data();
    void extractors();
    void remove_duplicates_keeps_first_occurrences_data();
    void remove_duplicates_keeps_first_occurrences();
    void loader_reports_what_it_loads_data();
    void loader_reports_what_it_loads();
};

void tst_object_xml::round_trip_of_every_kind() {
    System system(true);
    SampleObject source(&system, "sample-1");
    fill(source);
    QVERIFY(source.version() > 0);
    const QString xml = source.object_to_xml();

    System other_system(true);
    SampleObject copy(&other_system, "copy");
    copy.property("name").version(9);
    copy.activate_from_xmldata(xml);

    QCOMPARE(copy.name, source.name);
    QCOMPARE(copy.next, source.next);
    QCOMPARE(copy.items, source.items);
    QCOMPARE(copy.attributes, source.attributes);
    QCOMPARE(copy.tags, source.tags);
    QCOMPARE(copy.version(), source.version());
    // The written "VERSION" is not what the reader looks for: every property restarts at 0.
    for (const char* name : {"name", "next", "items", "attributes", "tags"}) {
        QVERIFY2(source.property(name).version() > 0, name);
        QCOMPARE(copy.property(name).version(), 0L);
    }
    // The virtual property is not written and so not activated by the read.
    QVERIFY(!copy.properties().contains("area"));
    // Nor does the identifier change: "ID" restores nothing on a sample.
    QCOMPARE(copy.id(), QString("copy"));
}

void tst_object_xml::text_is_trimmed_and_element_names_folded() {
    System system(true);
    SampleObject sample(&system, "s");
    sample.activate_from_xmldata(
        wrap("<PRIMITIVE name=\"name\" VERSION=\"2\">   padded value \n </PRIMITIVE>\n"
             " <Reference name=\"next\">  other  </Reference>"));
    QCOMPARE(sample.name, QString("padded value"));
    QCOMPARE(sample.next, QString("other"));
    QCOMPARE(sample.version(), 3L);
}

void tst_object_xml::entries_restore_only_inside_the_matching_element_data() {
    QTest::addColumn<QString>("body");
    QTest::addColumn<QString>("restored"); // items | tags | attribute keys
    QTest::newRow("entries of each kind")
        << "<list name=\"items\"><listelement index=\"0\">a</listelement>"
           "<listelement index=\"1\">b</listelement></list>"
           "<set name=\"tags\"><setelement>t</setelement></set>"
           "<map name=\"attributes\"><mapelement key=\"k\">v</mapelement></map>"
        << QString("a b | t | k");
    QTest::newRow("setelement outside any property") << "<setelement>loose</setelement>" << QString(" |  | ");
    QTest::newRow("text directly inside a set") << "<set name=\"tags\">direct</set>" << QString(" |  | ");
    QTest::newRow("map text inside a setelement")
        << "<map name=\"attributes\"><setelement>v</setelement></map>" << QString(" |  | ");
    QTest::newRow("set text inside a listelement")
        << "<set name=\"tags\"><listelement index=\"0\">v</listelement></set>" << QString(" |  | ");
    QTest::newRow("text after the entry closed")
        << "<set name=\"tags\"><setelement>in</setelement>after</set>" << QString(" | in | ");
}

void tst_object_xml::entries_restore_only_inside_the_matching_element() {
    QFETCH(QString, body);
    System system(true);
    SampleObject sample(&system, "s");
    sample.activate_from_xmldata(wrap(body));
    const QStringList restored{sample.items.join(' '), sample.tags.join(' '),
                               QStringList(sample.attributes.keys()).join(' ')};
    QTEST(restored.join(" | "), "restored");
}

void tst_object_xml::unknown_property_throws_and_keeps_what_came_before_data() {
    QTest::addColumn<QString>("body");
    QTest::addColumn<QString>("message");
    QTest::newRow("unknown name") << "<primitive name=\"name\">kept</primitive><set name=\"colour\"/>"
                                  << QString("No such property [colour]");
    // Attribute names are not folded: "NAME" is not "name", and the empty name is unknown.
    QTest::newRow("attribute name in capitals")
        << "<primitive name=\"name\">kept</primitive><primitive NAME=\"next\">x</primitive>"
        << "No such property []";
}

void tst_object_xml::unknown_property_throws_and_keeps_what_came_before() {
    QFETCH(QString, body);
    QFETCH(QString, message);
    System system(true);
    SampleObject sample(&system, "s");
    try {
        sample.activate_from_xmldata(wrap(body));
        QFAIL("no exception");
    } catch (const NoSuchProperty_Exception& failure) {
        QCOMPARE(failure.text(), message);
    }
    QCOMPARE(sample.name, QString("kept"));
    QCOMPARE(sample.next, QString());
    QCOMPARE(sample.version(), 0L);
}

void tst_object_xml::malformed_text_stops_silently_and_still_sets_the_version() {
    System system(true);
    SampleObject sample(&system, "s");
    sample.activate_from_xmldata(wrap(
        "<primitive name=\"name\">before</primitive><reference name=\"next\">x</wrong><set name=\"tags\">"
        "<setelement>after</setelement></set>"));
    QCOMPARE(sample.name, QString("before"));
    QVERIFY(sample.tags.isEmpty());
    QCOMPARE(sample.version(), 3L);
}

void tst_object_xml::xml_to_object_makes_a_registered_plain_object() {
    System system(true);
    Object source(&system, "plain-1");
    source.version(41);
    const QString xml = source.object_to_xml();

    System target(true);
    auto* store = new RepositoryP(&target);
    QVERIFY(target.add_repository(store, "store"));
    Object* made = Object::xml_to_object(store, xml);
    QVERIFY(made);
    QCOMPARE(made->id(), QString("plain-1"));
    QCOMPARE(made->version(), 41L);
    QCOMPARE(target.object("plain-1"), made);
    made->delete_object();
    QVERIFY(!store->contains("plain-1"));
    target.remove_repository("store");
    delete store;
}

void tst_object_xml::xml_to_object_leaves_nothing_behind_on_failure() {
    System system(true);
    SampleObject source(&system, "sample-1");
    fill(source);

    System target(true);
    auto* store = new RepositoryP(&target);
    target.add_repository(store, "store");
    // A plain object publishes only "ID", so a sample's text names properties it lacks.
    QVERIFY_EXCEPTION_THROWN(Object::xml_to_object(store, source.object_to_xml()), NoSuchProperty_Exception);
    QCOMPARE(store->count(), 0);
    target.remove_repository("store");
    delete store;
}

void tst_object_xml::extractors_data() {
    QTest::addColumn<QString>("xml");
    QTest::addColumn<QString>("id");
    QTest::addColumn<long>("version");
    QTest::addColumn<QString>("classname");
    QTest::newRow("written text") << wrap("<primitive name=\"ID\" VERSION=\"0\">s</primitive>") << "s" << 3L
                                  << "test::Sample";
    QTest::newRow("first occurrence wins")
        << "<object ID=\"a\" VERSION=\"12\"><classname>X</classname><primitive name=\"ID\" VERSION=\"5\">"
           "</primitive><classname>Y</classname>"
        << "a" << 12L << "X";
    QTest::newRow("nothing to find") << "plain words" << QString("in words") << 0L << "";
    QTest::newRow("no closing quotation marks")
        << "ID=\"abc VERSION=\"7" << QString("abc VERSION=") << 7L << "";
    QTest::newRow("classname not closed") << "<classname>open" << QString("assname>open") << 0L << "";
    QTest::newRow("version not a number") << "<object ID=\"q\" VERSION=\"x1\">" << QString("q") << 0L << "";
}

void tst_object_xml::extractors() {
    QFETCH(QString, xml);
    QTEST(xml_object_id(xml), "id");
    QTEST(xml_object_version(xml), "version");
    QTEST(xml_classname(xml), "classname");
}

void tst_object_xml::remove_duplicates_keeps_first_occurrences_data() {
    QTest::addColumn<QStringList>("list");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("repeats spread out")
        << QStringList{"b", "a", "b", "c", "a", "b"} << QStringList{"b", "a", "c"};
    QTest::newRow("all equal") << QStringList{"x", "x", "x"} << QStringList{"x"};
    QTest::newRow("case matters") << QStringList{"A", "a", "A"} << QStringList{"A", "a"};
}

void tst_object_xml::remove_duplicates_keeps_first_occurrences() {
    QFETCH(QStringList, list);
    remove_duplicates(list);
    QTEST(list, "expected");
}

namespace {
struct TestAlgorithm {
    const char* name;
    int calls;
};
} // namespace

void tst_object_xml::loader_reports_what_it_loads_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("errors");
    QTest::addColumn<QByteArray>("output");
    QTest::newRow("algorithm library") << ZENTRA_TEST_ALGORITHM << QByteArray("algorithm library loaded.\n")
                                       << QByteArray("algorithm created.\n");
    QTest::newRow("bad path") << "/nonexistent/libnothing.so"
                              << QByteArray("error while loading algorithm library \n") << QByteArray();
    QTest::newRow("no create_algorithm")
        << ZENTRA_TEST_NO_ALGORITHM << QByteArray("algorithm library loaded.\ncreateAlgorithm error \n")
        << QByteArray();
}

void tst_object_xml::loader_reports_what_it_loads() {
    QFETCH(QString, path);
    QFETCH(QByteArray, errors);
    QFETCH(QByteArray, output);
    OutputCapture error_capture(stderr);
    OutputCapture output_capture(stdout);
    // Each call loads anew and creates anew; the library stays loaded, so both are the same one.
    auto* first = static_cast<TestAlgorithm*>(load_algorithm_library(path));
    auto* second = static_cast<TestAlgorithm*>(load_algorithm_library(path));
    const QByteArray printed = output_capture.text();
    QCOMPARE(error_capture.text(), errors + errors);
    QCOMPARE(printed, output + output);
    QCOMPARE(second, first);
    QCOMPARE(first != nullptr, !output.isEmpty());
    if (first) {
        QCOMPARE(QByteArray(first->name), QByteArray("test algorithm"));
        QCOMPARE(first->calls, 2);
    }
}

QTEST_GUILESS_MAIN(tst_object_xml)
#include "tst_object_xml.moc"
