#pragma once

// A sparse matrix with keys, whose values are combined through an algebra given by the caller.
// The object model stores in it, for every ordered pair of connected table columns, the chain of
// columns between them; its shortest-path computation is a repeated product of two such graphs.
//
//     graph::Graph<Node *, Path *> g;
//     g.set(a, b, path);                  // entries made on demand, in one row and one column
//     if (!g.get(a, c).is_null()) ...     // a missing entry is the shared null entry
//
// The graph owns its entries, rows and columns, never the values: those belong to whoever made
// them (for column paths, the system).

#include <QList>
#include <QMap>
#include <QSet>
#include <QTextStream>

#include <type_traits>
#include <utility>

namespace graph {

namespace detail {
/// Pointers print as addresses, anything else through its own stream operator.
template <typename T> void print_value(QTextStream& stream, const T& value) {
    if constexpr (std::is_pointer_v<T>)
        stream << static_cast<const void*>(value);
    else
        stream << value;
}
} // namespace detail

/// One entry of a graph: a value from one key to another. The entry whose three words are all
/// zero stands for "no entry".
template <typename K, typename V> struct GraphEntry {
    K from{};
    K to{};
    V value{};

    bool is_null() const { return from == K{} && to == K{} && value == V{}; }
};

/// The entries of a graph that share one key, by their other key. A line refers to its
/// entries; the graph owns them.
template <typename K, typename V> class GraphLine {
public:
    using Entry = GraphEntry<K, V>;

    virtual ~GraphLine() = default;
    virtual void print(QTextStream& stream) const {
        for (auto it = entries.cbegin(); it != entries.cend(); ++it) {
            stream << "  (";
            detail::print_value(stream, it.value()->from);
            stream << " -> ";
            detail::print_value(stream, it.value()->to);
            stream << ") = ";
            detail::print_value(stream, it.value()->value);
            stream << "\n";
        }
    }
    virtual void add(Entry* entry) = 0;

    bool isEmpty() const { return entries.isEmpty(); }
    int size() const { return entries.size(); }

    QMap<K, Entry*> entries;
};

/// The entries that start at one key, by the key they lead to.
template <typename K, typename V> class GraphRow : public GraphLine<K, V> {
public:
    void add(GraphEntry<K, V>* entry) override { this->entries.insert(entry->to, entry); }
};

/// The entries that end at one key, by the key they come from.
template <typename K, typename V> class GraphColumn : public GraphLine<K, V> {
public:
    void add(GraphEntry<K, V>* entry) override { this->entries.insert(entry->from, entry); }
};

/// What a graph needs of its value type: a neutral value for `add` (which also means "no
/// value"), a neutral value for `multiply`, and the two operations.
template <typename V> class Algebra {
public:
    virtual ~Algebra() = default;
    virtual V zero() = 0;
    virtual V one() = 0;
    virtual V multiply(V a, V b) = 0;
    virtual V add(V a, V b) = 0;
};

/// A sparse keyed matrix. A missing key, row or entry costs nothing: look-ups that find
/// nothing yield the shared null entry and the shared empty row, so they never allocate.
template <typename K, typename V> class Graph {
public:
    using Entry = GraphEntry<K, V>;
    using Row = GraphRow<K, V>;
    using Column = GraphColumn<K, V>;

    Graph() = default;
    Graph(const Graph&) = delete;
    Graph& operator=(const Graph&) = delete;
    Graph(Graph&& other) noexcept { swap(other); }
    Graph& operator=(Graph&& other) noexcept {
        if (this != &other) {
            clear();
            swap(other);
        }
        return *this;
    }
    virtual ~Graph() { clear(); }

    virtual void print(QTextStream& stream) const {
        stream << "graph of " << keys.size() << " keys\n";
        for (const Row* row : rows)
            row->print(stream);
    }

    /// Enters a key without any entry.
    void add_key(K key) { keys.insert(key); }

    /// Enters both keys; replaces the value of an existing entry, or makes the entry.
    void set(K from, K to, V value) {
        keys.insert(from);
        keys.insert(to);
        Row*& row = rows[from];
        if (!row)
            row = new Row();
        if (Entry* existing = row->entries.value(to)) {
            existing->value = value;
            return;
        }
        Column*& column = columns[to];
        if (!column)
            column = new Column();
        auto* entry = new Entry{from, to, value};
        row->add(entry);
        column->add(entry);
    }

    /// The entry from `from` to `to`, or the null entry.
    const Entry& get(K from, K to) const {
        const Entry* found = row(from).entries.value(to);
        return found ? *found : null_entry();
    }

    /// The entries that start at `key`, or the shared empty row.
    const Row& row(K key) const {
        const Row* found = rows.value(key);
        return found ? *found : empty_row();
    }

    /// Changes the value of an existing entry; does nothing if there is none.
    void replace(K from, K to, V value) {
        if (Row* found = rows.value(from))
            if (Entry* entry = found->entries.value(to))
                entry->value = value;
    }

    void clear() {
        for (Row* row : qAsConst(rows)) {
            qDeleteAll(row->entries);
            delete row;
        }
        qDeleteAll(columns);
        rows.clear();
        columns.clear();
        keys.clear();
    }

    QList<K> key_list() const { return keys.values(); }

    QList<Entry> entries() const {
        QList<Entry> copies;
        for (const Row* row : rows)
            for (const Entry* entry : row->entries)
                copies.append(*entry);
        return copies;
    }

    const QSet<K>& key_set() const { return keys; }

    /// The product of this graph and `other` over those of `keys` that both graphs know, taken
    /// in the order of `keys`. Entries whose product is the algebra's zero are left out.
    Graph multiply(const Graph& other, const QList<K>& keys_in_order, Algebra<V>& algebra) const {
        Graph result;
        QList<K> kept;
        for (const K& key : keys_in_order)
            if (keys.contains(key) && other.keys.contains(key)) {
                kept.append(key);
                result.keys.insert(key);
            }
        for (const K& i : qAsConst(kept)) {
            const Row* left = rows.value(i);
            if (!left || left->isEmpty())
                continue;
            for (const K& j : qAsConst(kept)) {
                const Column* right = other.columns.value(j);
                if (!right || right->isEmpty())
                    continue;
                const V value = product(*left, *right, algebra);
                if (value != algebra.zero())
                    result.set(i, j, value);
            }
        }
        return result;
    }

    /// Adds `other` into this graph: its keys, its entries where this graph has none, and the
    /// algebra's sum where both have one.
    void merge(const Graph& other, Algebra<V>& algebra) {
        if (&other == this)
            return;
        keys.unite(other.keys);
        for (const Row* row : other.rows)
            for (const Entry* entry : row->entries) {
                const Entry& own = get(entry->from, entry->to);
                if (own.is_null())
                    set(entry->from, entry->to, entry->value);
                else
                    replace(entry->from, entry->to, algebra.add(own.value, entry->value));
            }
    }

private:
    static const Entry& null_entry() {
        static const Entry null{};
        return null;
    }
    static const Row& empty_row() {
        static const Row empty;
        return empty;
    }

    /// The sum, over the keys that both lines hold, of the products of their values. The keys are
    /// taken from the shorter line (from `column` when both are as long), in ascending order.
    static V product(const Row& row, const Column& column, Algebra<V>& algebra) {
        V sum = algebra.zero();
        const bool row_is_shorter = row.size() < column.size();
        const QMap<K, Entry*>& walked = row_is_shorter ? row.entries : column.entries;
        const QMap<K, Entry*>& probed = row_is_shorter ? column.entries : row.entries;
        for (auto it = walked.cbegin(); it != walked.cend(); ++it) {
            const Entry* other_entry = probed.value(it.key());
            if (!other_entry)
                continue;
            const Entry* left = row_is_shorter ? it.value() : other_entry;
            const Entry* right = row_is_shorter ? other_entry : it.value();
            sum = algebra.add(sum, algebra.multiply(left->value, right->value));
        }
        return sum;
    }

    void swap(Graph& other) {
        std::swap(keys, other.keys);
        std::swap(rows, other.rows);
        std::swap(columns, other.columns);
    }

    QSet<K> keys;
    QMap<K, Row*> rows;
    QMap<K, Column*> columns;
};

} // namespace graph
