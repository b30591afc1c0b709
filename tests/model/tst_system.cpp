#include "model/SampleObject.h"

#include "model/Repository.h"
#include "model/RepositoryP.h"
#include "model/System.h"
#include "model/exceptions.h"

#include <QRegExp>
#include <QtTest>

using namespace model;

class tst_system : public QObject {
    Q_OBJECT
private slots:
    void repository_stores_without_owning();
    void object_trims_and_searches_transient_first();
    void persistent_repositories_by_name();
    void failed_lookup_reserves_the_repository_name();
    void property_paths_data();
    void property_paths();
    void property_path_failures_data();
    void property_path_failures();
    void resolve_property_path_takes_one_step();
    void cyclic_reference_values_end();
    void all_and_common_properties_ask_one_object_per_class();
};

/// Three samples a -> b -> c through their references "next", named after their identifiers.
struct Chain {
    System system{true};
    SampleObject a{&system, "a"};
    SampleObject b{&system, "b"};
    SampleObject c{&system, "c"};
    Chain() {
        for (SampleObject* sample : {&a, &b, &c})
            sample->name = "name of " + sample->id();
        a.next = "b";
        b.next = "c";
        c.next = "";
    }
};

void tst_system::repository_stores_without_owning() {
    System system(false);
    Repository& repository = system.repository();

    Object plain(&system, "p");
    SampleObject sample(&system, "s");
    QCOMPARE(repository.object("s"), &sample);

    QStringList ids;
    repository.ids(ids);
    ids.sort();
    QCOMPARE(ids, (QStringList{"p", "s"}));
    QStringList samples{"x"};
    repository.ids_of_class(samples, QRegExp("^test::"));
    QCOMPARE(samples, (QStringList{"x", "s"}));

    repository.remove("s");
    QVERIFY(!repository.contains("s"));
    repository.insert(&sample); // still alive
    repository.remove(&plain);
    QCOMPARE(repository.count(), 1);
    repository.clear();
    QCOMPARE(repository.count(), 0);

    // An entry under a reused identifier belongs to the last comer.
    Object first(&system, "same");
    Object second(&system, "same");
    QCOMPARE(system.object("same"), &second);
}

void tst_system::object_trims_and_searches_transient_first() {
    System system(true);
    RepositoryP stored(&system);
    QVERIFY(system.add_repository(&stored, "store"));
    SampleObject in_store("x", &stored);
    SampleObject only_stored("y", &stored);
    QCOMPARE(system.object(" x "), &in_store);
    QCOMPARE(system.object("\ty\n"), &only_stored);

    Object in_memory(&system, "x");
    QCOMPARE(system.object("x"), &in_memory);
    QCOMPARE(system.object("y"), &only_stored);
    QVERIFY(system.object_exists("y "));
    QVERIFY(!system.object_exists("z"));
}

void tst_system::persistent_repositories_by_name() {
    System system(true);
    RepositoryP first(&system);
    RepositoryP second(&system);
    QVERIFY(system.add_repository(&second, "zeta"));
    QVERIFY(system.add_repository(&first, "alpha"));
    QVERIFY(!system.add_repository(&first, "zeta"));
    QCOMPARE(&system.repositoryP("zeta"), &second);

    // Searched in name order: "alpha" before "zeta".
    Object in_second("dup", &second);
    Object in_first("dup", &first);
    QCOMPARE(system.object("dup"), &in_first);

    QStringList names{"kept"};
    system.get_active_repositories(names);
    QCOMPARE(names, (QStringList{"kept", "alpha", "zeta"}));
    system.remove_repository("alpha");
    QCOMPARE(system.persistent_repositories().keys(), QStringList{"zeta"});
    QCOMPARE(system.object("dup"), &in_second);
    QCOMPARE(first.object("dup"), &in_first); // a removed repository lives on
}

void tst_system::failed_lookup_reserves_the_repository_name() {
    System system(true);
    RepositoryP repository(&system);
    try {
        system.repositoryP("x");
        QFAIL("no exception");
    } catch (const NoSuchRepository_Exception& e) {
        QCOMPARE(e.text(), QString("No such repository [x]"));
    }
    QVERIFY(system.persistent_repositories().contains("x"));
    QCOMPARE(system.persistent_repositories().value("x"), static_cast<RepositoryP*>(nullptr));
    QVERIFY(!system.add_repository(&repository, "x"));
    QVERIFY_EXCEPTION_THROWN(system.repositoryP("x"), basic::Exception);
    // The null entry is passed over when objects are searched.
    QCOMPARE(system.object("anything"), static_cast<Object*>(nullptr));
}

void tst_system::property_paths_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("found");
    QTest::newRow("direct") << "a.name" << QString("a.name");
    QTest::newRow("through one reference") << "a.next.name" << QString("b.name");
    QTest::newRow("through two references") << "a.next.next.ID" << QString("c.ID");
    QTest::newRow("trimmed identifier") << " b .next.name" << QString("c.name");
    QTest::newRow("reference itself") << "a.next.next" << QString("b.next");
}

void tst_system::property_paths() {
    QFETCH(QString, path);
    QFETCH(QString, found);
    Chain chain;
    Property& property = chain.system.property(path);
    QCOMPARE(property.id(), found);
    QCOMPARE(&property, &chain.system.object(found.section('.', 0, 0))->property(found.section('.', 1)));
}

void tst_system::property_path_failures_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("no_such_property");
    QTest::newRow("no dot") << "abc" << QString("Wrong ID. Excpected format [objID.localname] ") << false;
    QTest::newRow("unknown object") << "x.name" << QString("No object") << false;
    QTest::newRow("unknown first object on a path") << "x.next.name" << QString("No object") << false;
    QTest::newRow("unknown property") << "a.nothing" << QString("No property") << false;
    QTest::newRow("unknown property at the end") << "a.next.nothing" << QString("No property") << false;
    QTest::newRow("reference to nobody") << "c.next.name" << QString("No object") << false;
    QTest::newRow("unknown reference on the way")
        << "a.nothing.name" << QString("No such property [nothing]") << true;
}

void tst_system::property_path_failures() {
    QFETCH(QString, path);
    QFETCH(QString, text);
    QFETCH(bool, no_such_property);
    Chain chain;
    try {
        chain.system.property(path);
        QFAIL("no exception");
    } catch (const NoSuchProperty_Exception& e) {
        QVERIFY(no_such_property);
        QCOMPARE(e.text(), text);
    } catch (const basic::Exception& e) {
        QVERIFY(!no_such_property);
        QCOMPARE(e.text(), text);
    }
}

void tst_system::resolve_property_path_takes_one_step() {
    Chain chain;
    QString path = "a.next.next.name";
    QCOMPARE(chain.system.resolve_property_path(path), QString("a.next"));
    QCOMPARE(path, QString("b.next.name"));
    QCOMPARE(chain.system.resolve_property_path(path), QString("b.next"));
    QCOMPARE(path, QString("c.name"));
    QVERIFY(chain.system.resolve_property_path(path).isNull());
    QCOMPARE(path, QString("c.name"));

    path = "x.next.name";
    QVERIFY(chain.system.resolve_property_path(path).isNull());
    QCOMPARE(path, QString("x.next.name"));

    // The middle property is read as a reference value whatever its kind: a primitive has none.
    path = "a.name.ID";
    QCOMPARE(chain.system.resolve_property_path(path), QString("a.name"));
    QCOMPARE(path, QString(".ID"));
}

void tst_system::cyclic_reference_values_end() {
    Chain chain;
    chain.a.next = "a.next"; // not an identifier: would lead back to the start for ever
    try {
        chain.system.property("a.next.name");
        QFAIL("no exception");
    } catch (const basic::Exception& e) {
        QCOMPARE(e.text(), QString("No property"));
    }
}

void tst_system::all_and_common_properties_ask_one_object_per_class() {
    System system(true);
    SampleObject first(&system, "s1");
    SampleObject ghostly(&system, "s2");
    ghostly.publish_ghost = true;
    SampleObject untouched(&system, "s3");
    Object plain(&system, "p");
    const QStringList sample_names{"ID", "area", "attributes", "items", "name", "next", "tags"};
    const auto sorted = [](QStringList names) {
        names.sort();
        return names;
    };
    QList<Object*> none;
    QVERIFY(system.all_properties(none).isEmpty());
    QVERIFY(system.common_properties(none).isEmpty());

    // The first object of each class speaks for it: the ghost is unknown to it.
    QList<Object*> samples{&first, &ghostly};
    QCOMPARE(sorted(system.all_properties(samples)), sample_names);
    QList<Object*> reversed{&plain, &ghostly, &first};
    QCOMPARE(sorted(system.all_properties(reversed)), sorted(sample_names + QStringList{"ghost"}));

    QList<Object*> with_plain{&first, &plain};
    QCOMPARE(system.common_properties(with_plain), QStringList{"ID"});
    // "ghost" is listed but cannot be made: left out.
    QList<Object*> ghost_first{&ghostly, &untouched};
    QCOMPARE(sorted(system.common_properties(ghost_first)), sample_names);
    QVERIFY(untouched.properties().isEmpty()); // same class as the first: never asked
}

QTEST_GUILESS_MAIN(tst_system)
#include "tst_system.moc"
