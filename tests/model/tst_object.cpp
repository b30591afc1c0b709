#include "model/SampleObject.h"

#include "model/Repository.h"
#include "model/System.h"
#include "model/exceptions.h"

#include <QTextStream>
#include <QtTest>

using namespace model;

class tst_object : public QObject {
    Q_OBJECT
private slots:
    void fresh_object_publishes_only_its_identifier();
    void each_kind_is_activated_once_on_first_use_data();
    void each_kind_is_activated_once_on_first_use();
    void kinds_forward_to_the_owner();
    void set_raises_versions_and_restore_does_not();
    void unknown_members_throw_catchable_as_basic_exception();
    void copy_gets_new_identity_and_no_members();
    void destruction_and_delete_object_leave_the_repository();
    void property_list_with_pattern();
    void object_to_xml_of_every_kind();
    void object_to_xml_reports_and_skips_missing_members();
    void to_xml_of_a_list_without_elements();
    void set_update_method_splits_the_path_data();
    void set_update_method_splits_the_path();
    void resolve_update_method();
    void method_path_bookkeeping();
    void method_subupdate_properties_follow_references_and_lists();
    void print_shows_the_facts_of_an_object_and_its_method();
};

void tst_object::fresh_object_publishes_only_its_identifier() {
    System system(true);
    Object plain(&system);
    QStringList names;
    plain.property_list(names);
    QCOMPARE(names, QStringList{"ID"});
    QVERIFY(plain.properties().isEmpty());

    Property& id = plain.property("ID");
    QCOMPARE(id.id(), plain.id() + ".ID");
    QCOMPARE(static_cast<Primitive&>(id).get(), plain.id());
}

void tst_object::each_kind_is_activated_once_on_first_use_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("type");
    QTest::newRow("primitive") << "name" << int(PRIMITIVE_ELEMENT);
    QTest::newRow("reference") << "next" << int(REFERENCE_ELEMENT);
    QTest::newRow("list") << "items" << int(LIST_ELEMENT);
    QTest::newRow("map") << "attributes" << int(MAP_ELEMENT);
    QTest::newRow("set") << "tags" << int(SET_ELEMENT);
}

void tst_object::each_kind_is_activated_once_on_first_use() {
    QFETCH(QString, name);
    QFETCH(int, type);
    System system(true);
    SampleObject sample(&system, "s1");
    QVERIFY(sample.properties().isEmpty());

    Property& first = sample.property(name);
    QCOMPARE(&sample.property(name), &first);
    QCOMPARE(sample.activations.value(name), 1);
    QCOMPARE(sample.properties().size(), 1);
    QCOMPARE(int(first.element_type()), type);
    QCOMPARE(first.id(), "s1." + name);
}

void tst_object::kinds_forward_to_the_owner() {
    System system(true);
    SampleObject sample(&system, "s1");
    sample.name = "Wall";
    sample.next = "s2";
    QCOMPARE(static_cast<Primitive&>(sample.property("name")).get(), QString("Wall"));
    QCOMPARE(static_cast<Reference&>(sample.property("next")).get(), QString("s2"));
    QCOMPARE(static_cast<Reference&>(sample.property("next")).referenced_class(), QString("test::Sample"));
    QCOMPARE(static_cast<Primitive&>(sample.property("area")).get(), QString("12.5"));

    auto& items = static_cast<List&>(sample.property("items"));
    items.insert(0, "b");
    items.insert(0, "a");
    items.replace(1, "c");
    items.restore(2, "d");
    QCOMPARE(items.count(), 3);
    QCOMPARE(items.get(1), QString("c"));
    items.remove(0);
    QCOMPARE(sample.items, (QStringList{"c", "d"}));

    auto& attributes = static_cast<Map&>(sample.property("attributes"));
    attributes.write("k1", "v1");
    attributes.restore("k2", "v2");
    attributes.remove("k1");
    QCOMPARE(attributes.keys(), QStringList{"k2"});
    QCOMPARE(attributes.get("k2"), QString("v2"));

    auto& tags = static_cast<Set&>(sample.property("tags"));
    tags.add("t1");
    tags.add("t1");
    tags.restore("t2");
    tags.remove("t1");
    QCOMPARE(tags.values(), QStringList{"t2"});

    QVERIFY(!sample.property("name").variant_value().isValid());
    QCOMPARE(sample.property("name").info(), QString("The name shown to users."));
}

void tst_object::set_raises_versions_and_restore_does_not() {
    System system(true);
    SampleObject sample(&system, "s1");
    auto& name = static_cast<Primitive&>(sample.property("name"));
    name.restore("restored");
    QCOMPARE(name.version(), 0L);
    QCOMPARE(sample.version(), 0L);
    name.set("changed");
    QCOMPARE(sample.name, QString("changed"));
    QCOMPARE(name.version(), 1L);
    QCOMPARE(sample.version(), 1L);

    // Each property counts its own; the object counts them all, but not an unknown name.
    QCOMPARE(sample.increase_property_version("ID"), 1L);
    QCOMPARE(sample.increase_property_version("ID"), 2L);
    QCOMPARE(sample.increase_property_version("x"), 0L);
    QCOMPARE(sample.version(), 3L);
}

void tst_object::unknown_members_throw_catchable_as_basic_exception() {
    System system(true);
    SampleObject sample(&system, "s1");
    try {
        sample.property("x");
        QFAIL("no exception");
    } catch (const basic::Exception& e) {
        QVERIFY(dynamic_cast<const NoSuchProperty_Exception*>(&e));
        QCOMPARE(e.text(), QString("No such property [x]"));
    }
    QVERIFY_EXCEPTION_THROWN(sample.method("x"), NoSuchMethod_Exception);
    QVERIFY(sample.properties().isEmpty());
    QVERIFY(sample.methods().isEmpty());
}

void tst_object::copy_gets_new_identity_and_no_members() {
    System system(true);
    SampleObject sample(&system, "s1");
    sample.increase_property_version("name");
    SampleObject copy(sample);
    QVERIFY(copy.id() != sample.id());
    QCOMPARE(copy.version(), 0L);
    QVERIFY(copy.properties().isEmpty());
    QCOMPARE(system.object(copy.id()), &copy);
    QCOMPARE(system.object("s1"), &sample);
}

void tst_object::destruction_and_delete_object_leave_the_repository() {
    System system(true);
    auto* deleted = new SampleObject(&system, "gone");
    deleted->property("items");
    deleted->method("recompute");
    {
        Object scoped(&system, "scoped");
        QCOMPARE(system.repository().count(), 2);
    }
    QVERIFY(!system.object_exists("scoped"));
    deleted->delete_object();
    QVERIFY(!system.object_exists("gone"));
    QCOMPARE(system.repository().count(), 0);

    // Without a repository an object knows no system and stays unregistered.
    Object loose("loose", nullptr);
    QCOMPARE(loose.repository(), static_cast<Repository*>(nullptr));
    QCOMPARE(loose.property("ID").id(), QString("loose.ID"));
}

void tst_object::property_list_with_pattern() {
    System system(true);
    SampleObject sample(&system, "s1");
    QStringList out{"kept"};
    sample.property_list(out, "^[nt]");
    QCOMPARE(out, (QStringList{"kept", "s1.name", "s1.next", "s1.tags"}));
    sample.property_list(out, "ID");
    QCOMPARE(out.last(), QString("s1.ID"));
    out.clear();
    sample.property_list(out, "^Name$"); // case-sensitive: no match, only a warning
    QVERIFY(out.isEmpty());
}

void tst_object::object_to_xml_of_every_kind() {
    System system(true);
    SampleObject sample(&system, "s1");
    static_cast<Primitive&>(sample.property("name")).set("Wall & <Door>");
    sample.next = "s2";
    sample.items = QStringList{"a", "b"};
    sample.attributes = {{"k1", "v1"}, {"k2", "v2"}};
    sample.tags = QStringList{"t1", "t2"};
    sample.property("name").set_update_method("recompute", false);
    sample.property("next").set_update_method("other::derive", true);
    Method& recompute = sample.method("recompute");
    recompute.version(4);
    recompute.last_update_versions().insert("s1.name", 3);
    recompute.add_input_path("s1.next[name]");
    recompute.add_output_path("s1.area");

    const QString expected = QStringLiteral(R"(<object ID="s1" VERSION="1">
<classname>test::Sample</classname>
<primitive name="ID" VERSION="0">s1</primitive>
<primitive name="name" VERSION="1" updatemethod="s1::recompute">Wall & <Door></primitive>
<reference name="next" VERSION="0">s2</reference>
<list name="items" VERSION="0">
   <listelement  index="0">a</listelement>
   <listelement  index="1">b</listelement>
</list>
<map name="attributes" VERSION="0">
   <mapelement key="k1">v1</mapelement>
   <mapelement key="k2">v2</mapelement>
</map>
<set name="tags" VERSION="0">
   <setelement>t1</setelement>
   <setelement>t2</setelement>
</set>
<method name="recompute" VERSION="4">
  <lastupdate name="s1.name" version="3"/>
  <inputpath name="s1.next[name]"/>
  <outputpath name="s1.area"/>
</method>
</object>)");
    QCOMPARE(sample.object_to_xml(), expected);
    // Writing activated the virtual property but left it out of the text.
    QVERIFY(sample.properties().contains("area"));
}

void tst_object::object_to_xml_reports_and_skips_missing_members() {
    System system(true);
    SampleObject sample(&system, "s1");
    sample.publish_ghost = true;
    const QString xml = sample.object_to_xml();
    QVERIFY(!xml.contains("ghost"));
    QVERIFY(xml.endsWith("<method name=\"recompute\" VERSION=\"0\">\n</method>\n</object>"));
}

void tst_object::to_xml_of_a_list_without_elements() {
    System system(true);
    Object plain(&system, "p1");
    List list("l", &plain, 2, false);
    QCOMPARE(list.count(), -1);
    QCOMPARE(list.to_xml(), QString("<list name=\"l\" VERSION=\"0\">\n</list>"));
}

void tst_object::set_update_method_splits_the_path_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("implicit");
    QTest::addColumn<QString>("full");
    QTest::newRow("owner's method") << "abc" << false << "p1::abc";
    QTest::newRow("leading separator") << "::abc" << false << "p1::::abc";
    QTest::newRow("other object") << "o7::abc::def" << false << "o7::abc::def";
    QTest::newRow("implicit") << "o7::abc" << true << "o7::abc";
    QTest::newRow("none") << "" << false << "p1::";
}

void tst_object::set_update_method_splits_the_path() {
    QFETCH(QString, path);
    QFETCH(bool, implicit);
    QFETCH(QString, full);
    System system(true);
    Object plain(&system, "p1");
    Property& id = plain.property("ID");
    id.set_update_method(path, implicit);
    QCOMPARE(id.has_update_method(), !path.isEmpty());
    QCOMPARE(id.update_method(), full);
    QCOMPARE(id.update_method_implicit(), implicit);
    // Only an explicit update method is written.
    const QString written = path.isEmpty() || implicit ? QString() : " updatemethod=\"" + full + "\"";
    QCOMPARE(id.to_xml(), "<primitive name=\"ID\" VERSION=\"0\"" + written + ">p1</primitive>");
}

void tst_object::resolve_update_method() {
    System system(true);
    SampleObject owner(&system, "s1");
    SampleObject other(&system, "s2");
    Property& name = owner.property("name");
    try {
        name.resolve_update_method();
        QFAIL("no exception");
    } catch (const NoSuchMethod_Exception& e) {
        QCOMPARE(e.text(), QString("No such method []"));
    }

    name.set_update_method("recompute", false);
    QCOMPARE(&name.resolve_update_method(), &owner.method("recompute"));
    name.set_update_method(" s2 ::recompute", false); // the identifier is trimmed on look-up
    QCOMPARE(&name.resolve_update_method(), &other.method("recompute"));

    // A failure reaches the caller as the base kind only.
    name.set_update_method("s2::missing", false);
    bool base_only = false;
    try {
        name.resolve_update_method();
    } catch (const NoSuchMethod_Exception&) {
        QFAIL("special kind escaped");
    } catch (const basic::Exception& e) {
        base_only = true;
        QCOMPARE(e.text(), QString("No such method [missing]"));
    }
    QVERIFY(base_only);
    name.set_update_method("nobody::recompute", false);
    QVERIFY_EXCEPTION_THROWN(name.resolve_update_method(), basic::Exception);
}

void tst_object::method_path_bookkeeping() {
    System system(true);
    SampleObject sample(&system, "s1");
    Method& method = sample.method("recompute");
    QCOMPARE(method.id(), QString("s1::recompute"));
    QVERIFY(!method.needs_subupdate());

    method.add_input_path("s1.name");
    method.add_input_path("s1.next[name]");
    method.add_input_path("s1.next[name]");
    method.add_input_path("s1.items[tags]");
    method.add_input_path("s1.next[ID]");
    QVERIFY(method.needs_subupdate());
    QCOMPARE(method.input_properties(), (QStringList{"s1.name", "s1.next", "s1.items"}));

    method.remove_input_path("s1.next[name]");
    method.remove_input_path("s1.items[tags]");
    QCOMPARE(method.input_paths(), (QStringList{"s1.name", "s1.next[ID]"}));
    QVERIFY(method.needs_subupdate());
    method.remove_input_path("s1.next[ID]");
    QVERIFY(!method.needs_subupdate());
    method.remove_input_path("s1.name");
    QVERIFY(method.input_paths().isEmpty());

    method.add_output_path("s1.area");
    method.add_output_path("s1.tags[x]");
    QVERIFY(!method.needs_subupdate());
    method.remove_output_path("s1.area");
    QCOMPARE(method.output_paths(), QStringList{"s1.tags[x]"});

    QStringList args{"a", "b"};
    QCOMPARE(method.invoke(args), QString("a+b"));
}

void tst_object::method_subupdate_properties_follow_references_and_lists() {
    System system(true);
    SampleObject sample(&system, "s1");
    sample.next = "s2";
    sample.items = QStringList{"s3", "s4"};
    Method& method = sample.method("recompute");
    method.add_input_path("s1.next[name]");
    method.add_input_path("s1.items[tags]");
    method.add_input_path("s1.name[x]");     // neither reference nor list: nothing
    method.add_input_path("nobody.next[x]"); // fails: passed over
    method.add_input_path("s1.area");
    QCOMPARE(method.subupdate_properties(&system), (QStringList{"s2.name", "s3.tags", "s4.tags"}));
}

// print() is a diagnostic dump: the facts it shows are checked, not its layout.
void tst_object::print_shows_the_facts_of_an_object_and_its_method() {
    System system(true);
    SampleObject sample(&system, "s1");
    sample.name = "Wall";
    sample.next = "s2";
    sample.property("name").set_update_method("o2::m", false);
    Method& method = sample.method("recompute");
    method.last_update_versions().insert("s1.name", 7);
    method.add_input_path("s1.next[tags]");
    QString text;
    QTextStream stream(&text);
    sample.print("> ", stream, true);
    method.print(&system, "# ", stream, false);
    stream.flush();
    // The method's subupdate resolves the path through the reference to the object it names.
    for (const char* fact : {"[s1]", "[test::Sample]", "[s1.name]", "[Wall]", "<o2::m>", "[s1::recompute]",
                             "[Sample for tests.]", "[s1.name] v = <7>", "<s1.next[tags]>", "<s2.tags>"})
        QVERIFY2(text.contains(fact), fact);
}

QTEST_GUILESS_MAIN(tst_object)
#include "tst_object.moc"
