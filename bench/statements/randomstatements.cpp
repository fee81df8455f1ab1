#include "bench/statements/randomstatements.h"

#include "data/schema/schema.h"

using Statement = RandomStatements::Statement;

std::vector<TableDef> RandomStatements::tables()
{
    static const QStringList names{"Part", "Orders", "OrderItem", "Shipment", "ShipmentItems", "Payments"};
    std::vector<TableDef> tables;
    for (const TableDef &table : Schema::permanentTables()) {
        if (names.contains(table.Name))
            tables.push_back(table);
    }
    return tables;
}

namespace {
const TableDef &partTable()
{
    static const TableDef part = RandomStatements::tables().front();
    return part;
}
} // namespace

const TableDef &RandomStatements::table()
{
    static const std::vector<TableDef> all = tables();
    return all[size_t(below(int(all.size())))];
}

// What the engines are known to do differently is left out: patterns over the dotted capital I of Turkish, whose small
// letter is one character here and two there; and the order of equal rows behind a RIGHT JOIN in brackets, where a file
// has no row numbers.

// Values: few, so that joins match, fail to match and match twice, and every kind of untidiness is among them.

QString RandomStatements::literal(ColumnType type)
{
    static const QStringList texts{"a",    "A",  "b ",    "B",     "",     " ",     "ä",        "Ä",      "a b", "1",
                                   "2.50", "-3", " 7 ",   "1,000", "(5)",  "$4",    "yes",      "x'y",    "50%", "a_c",
                                   "ß",    "ss", "é",     "Open",  "oPEN", "Zoë",   "3/1/2011", "[a]",    "a*",  "#",
                                   "Ω",    "ς",  "\"q\"", "a-b",   "a\\b", "ab\tc", "Ａ",       "\u0301e"};
    static const QStringList numbers{"0", "1", "2", "3", "-1", "7", "100000", "2147483647"};
    static const QStringList fractions{"0", "1", "2.5", "-0.1", "0.3", "12345.675", "0.0000001", "1e12", "3"};
    static const QStringList money{"0", "1.5", "9.99", "-2.0005", "100", "0.1"};
    static const QStringList dates{"#3/1/2011#", "#3/30/2011 2:05:09 PM#", "#12/31/1999#",
                                   "#1/1/2100#", "#12/30/1899#",           "#6:00:00 PM#"};
    switch (type) {
    case ColumnType::Text:
    case ColumnType::Memo:
        return u'\'' + pick(texts).replace("'", "''") + u'\'';
    case ColumnType::Long:
        return pick(numbers);
    case ColumnType::Double:
        return pick(fractions);
    case ColumnType::Currency:
        return pick(money);
    case ColumnType::Date:
        return pick(dates);
    case ColumnType::YesNo:
        break;
    }
    return pick({"True", "False"});
}

QStringList RandomStatements::rows()
{
    QStringList statements;
    for (const TableDef &table : tables()) {
        statements += "DELETE * FROM " + table.Name;
        for (int row = 1 + below(9); row > 0; --row) {
            QStringList names, values;
            for (const ColumnDef &column : table.columns) {
                names += u'[' + column.name + u']';
                const bool key = column.name.endsWith("ID") || column.name == u"ItemNumber";
                values += column.autoNumber  ? QString::number(row * 2)
                          : key && !oneIn(9) ? QString::number(1 + below(8))
                          : oneIn(7)         ? "Null"
                                             : literal(column.type);
            }
            statements += "INSERT INTO " + table.Name + " (" + names.join(",") + ") VALUES (" + values.join(",") + ')';
        }
    }
    return statements;
}

// Expressions

RandomStatements::Type RandomStatements::typeOf(const ColumnDef &column)
{
    switch (column.type) {
    case ColumnType::Text:
    case ColumnType::Memo:
        return Type::Text;
    case ColumnType::Date:
        return Type::Date;
    case ColumnType::YesNo:
        return Type::YesNo;
    default:
        return Type::Number;
    }
}

QString RandomStatements::column(const Scope &scope, Type type)
{
    QStringList names;
    for (const TableDef *table : scope) {
        for (const ColumnDef &column : table->columns) {
            if (typeOf(column) == type)
                names += table->Name + ".[" + column.name + u']';
        }
    }
    if (!names.isEmpty())
        return pick(names);
    return literal(type == Type::Number ? ColumnType::Double
                   : type == Type::Text ? ColumnType::Text
                   : type == Type::Date ? ColumnType::Date
                                        : ColumnType::YesNo);
}

QString RandomStatements::number(const Scope &scope, int depth)
{
    const auto part = [&] { return expression(scope, Type::Number, depth - 1); };
    switch (below(6)) {
    case 0:
        return part() + " + 0.5 * " + part();
    case 1:
        return "1.0 * " + part() + " - " + part();
    case 2:
        return "-(" + part() + ")";
    case 3:
        return "(" + part() + " + 1.5)";
    case 4:
        return "(" + expression(scope, Type::YesNo, depth - 1) + ") * 2";
    default:
        return part() + " / " + pick({"3", "2.5", "-7"});
    }
}

QString RandomStatements::expression(const Scope &scope, Type type, int depth)
{
    if (depth <= 0 || oneIn(3)) {
        static constexpr ColumnType types[] = {ColumnType::Double, ColumnType::Text, ColumnType::Date,
                                               ColumnType::YesNo};
        return oneIn(4) ? literal(type == Type::Number && oneIn(2) ? ColumnType::Long : types[int(type)])
                        : column(scope, type);
    }
    switch (type) {
    case Type::Number:
        return number(scope, depth);
    case Type::Text:
        return expression(scope, Type(below(3)), depth - 1) + " & " + expression(scope, Type::Text, depth - 1);
    case Type::Date:
        return column(scope, Type::Date) + pick({" + 1", " - 40", " + 0.25"});
    case Type::YesNo:
        break;
    }
    return condition(scope, depth);
}

QString RandomStatements::condition(const Scope &scope, int depth)
{
    static const QStringList comparisons{" = ", " <> ", " < ", " <= ", " > ", " >= "};
    const Type type = Type(below(3));
    const auto part = [&](Type of) { return expression(scope, of, depth - 1); };
    const QString no = oneIn(3) ? "NOT " : "";
    switch (below(depth > 0 ? 11 : 4)) {
    case 0:
        return column(scope, type) + pick(comparisons) + part(type);
    case 1:
        return "ISNULL(" + column(scope, Type(below(4))) + ')';
    case 2:
        return column(scope, type) + " IS " + no + "NULL";
    case 3:
        return column(scope, Type::YesNo) + pick({" = True", " <> False", " = 0", ""});
    case 4:
        return part(Type::Text) + ' ' + no + "LIKE " +
               pick({"'a*'", "'*A*'", "'?'", "'*%'", "'*_*'", "'[a-c]*'", "'#*'", "'[!a]*'", "'*[*]'", "'Ä'", "'*é*'",
                     "'*[#]'", "'*\\*'", "''"});
    case 5:
        return column(scope, type) + ' ' + no + "IN (" + part(type) + ',' + column(scope, type) + ')';
    case 6:
        return part(type) + ' ' + no + "BETWEEN " + part(type) + " AND " + part(type);
    case 7:
        return '(' + condition(scope, depth - 1) + pick({" AND ", " OR "}) + condition(scope, depth - 1) + ')';
    case 8:
        return "NOT " + condition(scope, depth - 1);
    case 9:
        return scope[0]->Name + ".[" + scope[0]->columns[0].name + "] " + no + "IN (SELECT " +
               scope[0]->columns[0].name + " FROM " + scope[0]->Name + " WHERE " + condition({scope[0]}, 0) + ')';
    default:
        return part(type) + pick(comparisons) + part(type);
    }
}

QString RandomStatements::where(const Scope &scope)
{
    return oneIn(3) ? QString() : " WHERE " + condition(scope, 3);
}

QString RandomStatements::order(const Scope &scope)
{
    if (oneIn(3))
        return {};
    QStringList keys;
    for (int count = 1 + below(2); count > 0; --count)
        keys += expression(scope, Type(below(4)), oneIn(3) ? 1 : 0) + pick({"", " DESC"});
    // A constant would be a column's position.
    keys.removeIf([](const QString &key) { return !key.contains(u'.') || key[0].isDigit(); });
    return keys.isEmpty() ? QString() : " ORDER BY " + keys.join(",");
}

QString RandomStatements::join(Scope &scope)
{
    static const std::vector<TableDef> all = tables();
    const auto named = [](const char *name) {
        return &*std::find_if(all.begin(), all.end(),
                              [name](const TableDef &table) { return table.Name == QLatin1String(name); });
    };
    const auto kind = [this] { return pick({" LEFT", " INNER", " LEFT"}) + " JOIN "; };
    if (oneIn(4)) {
        scope = {named("Orders"), named("Part")};
        return "Orders,Part";
    }
    scope = {named("Orders"), named("OrderItem")};
    QString text = "Orders" + (oneIn(4) ? " RIGHT JOIN " : kind()) + "OrderItem ON Orders.ID = OrderItem.OrderID";
    if (oneIn(2)) {
        scope.push_back(named("Part"));
        text = '(' + text + ')' + kind() + "Part ON OrderItem.PartNo = Part.PartNo";
    }
    if (oneIn(2)) {
        scope.push_back(named("Shipment"));
        text = '(' + text + ')' + kind() + "Shipment ON Orders.ID = Shipment.OrderID";
    }
    return text;
}

/// An expression that fails for some rows. Only one of them stands in a statement, over one table: which of two engines
/// would meet first is theirs to choose.
QString RandomStatements::failing(const Scope &scope)
{
    const QString text = column(scope, Type::Text), a = column(scope, Type::Number), b = column(scope, Type::Number);
    return pick({text + " + 1", text + " * 2", a + " / " + b, a + " \\ " + b, a + " MOD " + b, a + " ^ 0.5",
                 a + " * " + b, a + " + " + b, column(scope, Type::Date) + " + " + a, text + " LIKE '[a'", '-' + text,
                 a + " - " + text});
}

QString RandomStatements::aggregate(const Scope &scope)
{
    switch (below(6)) {
    case 0:
        return "COUNT(*)";
    case 1:
        return "COUNT(" + column(scope, Type(below(4))) + ')';
    case 2:
        return "SUM(" + expression(scope, Type::Number, 1) + ')';
    case 3:
        return "AVG(" + column(scope, Type::Number) + ')';
    default:
        return pick({"MIN(", "MAX("}) + expression(scope, Type(below(4)), 1) + ')';
    }
}

// Statements

Statement RandomStatements::select()
{
    Scope scope{&table()};
    QString from = scope[0]->Name;
    if (oneIn(6))
        return {"SELECT " + failing(scope) + " AS X FROM " + from, {}};
    if (oneIn(3))
        from = join(scope);
    QStringList items;
    for (int count = 1 + below(4); count > 0; --count)
        items += expression(scope, Type(below(4)), 2) + " AS X" + QString::number(count);
    if (oneIn(5))
        items += "(SELECT " + aggregate(oneIn(3) ? scope : Scope{&partTable()}) +
                 " FROM Part WHERE Part.PartNo = " + column(scope, Type::Text) + ") AS S";
    const QString head = pick({"", "", "", "TOP 3 ", "DISTINCT ", "TOP 50 PERCENT "});
    const bool distinct = head == u"DISTINCT ";
    return {"SELECT " + head + items.join(",") + " FROM " + from + where(scope) + (distinct ? QString() : order(scope)),
            {},
            distinct};
}

Statement RandomStatements::group()
{
    Scope scope{&table()};
    QString from = scope[0]->Name;
    if (oneIn(2))
        from = join(scope);
    QStringList keys, items;
    for (int count = below(3); count > 0; --count)
        keys += column(scope, Type(below(4)));
    keys.removeDuplicates();
    keys.removeIf([](const QString &key) { return !key.contains(u'['); });
    for (const QString &key : keys)
        items += key + " AS K" + QString::number(items.size());
    for (int count = 1 + below(3); count > 0; --count)
        items += aggregate(scope) + " AS X" + QString::number(count);
    QString sql = "SELECT " + items.join(",") + " FROM " + from + where(scope);
    if (!keys.isEmpty())
        sql += " GROUP BY " + keys.join(",");
    if (oneIn(4))
        sql += " HAVING " + aggregate(scope) + " IS NOT NULL";
    return {sql, {}, true};
}

Statement RandomStatements::write()
{
    const TableDef &target = table();
    const Scope scope{&target};
    QStringList names, values, settings;
    const bool fails = oneIn(6);
    for (const ColumnDef &column : target.columns) {
        if (column.autoNumber || !oneIn(int(target.columns.size()) / 3 + 1))
            continue;
        names += u'[' + column.name + u']';
        const Type type = fails ? Type(below(4)) : typeOf(column);
        const QString value = fails && settings.isEmpty() ? failing(scope)
                              : type == Type::Text        ? column.type == ColumnType::Memo ? expression(scope, type, 1)
                                                                                            : this->column(scope, type)
                                                          : expression(scope, type, 2);
        settings += names.last() + " = " + value;
        values += fails ? literal(ColumnType(below(7))) : literal(column.type);
        if (fails)
            break;
    }
    if (names.isEmpty() || oneIn(6))
        return {"DELETE * FROM " + target.Name + where(scope), target.Name};
    const bool keyed = target.columns[0].autoNumber;
    const QString id = keyed ? "ID," : "", taken = keyed ? QString::number(1000 + below(1 << 20)) + ',' : QString();
    switch (below(keyed ? 2 : 3)) {
    case 0:
        return {"INSERT INTO " + target.Name + " (" + id + names.join(",") + ") VALUES (" + taken + values.join(",") +
                    ')',
                target.Name};
    case 1:
        return {"UPDATE " + target.Name + " SET " + settings.join(",") + (fails ? QString() : where(scope)),
                target.Name};
    default:
        break;
    }
    QStringList sources;
    for (const QString &setting : settings)
        sources += setting.mid(setting.indexOf(" = ") + 3);
    return {"INSERT INTO " + target.Name + " (" + names.join(",") + ") SELECT " + sources.join(",") + " FROM " +
                target.Name + (fails ? QString() : where(scope)),
            target.Name};
}

Statement RandomStatements::next()
{
    switch (below(5)) {
    case 0:
    case 1:
        return select();
    case 2:
    case 3:
        return group();
    default:
        return write();
    }
}
