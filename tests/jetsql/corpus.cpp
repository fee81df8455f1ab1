#include "tests/jetsql/corpus.h"

#include "tests/support/datafile.h"

std::vector<corpus::Case> corpus::cases(bool onServer)
{
    std::vector<Case> cases;
    int number = 0;
    for (const QString &line : linesOf("jetsql/statements.txt")) {
        ++number;
        if (line.startsWith(u"# "))
            cases.push_back({line.sliced(2), number, {}});
        else if (line.startsWith(u"% ") || line.startsWith(u"? "))
            cases.back().steps.back().translated.append(line);
        else if (line.startsWith(u"^ ") && onServer)
            cases.back().steps.back().expected.last() = u'|' + line.sliced(1);
        else if (line.startsWith(u"^ "))
            continue;
        else if (line.size() > 1 && line.at(1) == u' ' && QStringView(u">~|+=!").contains(line.front()))
            cases.back().steps.back().expected.append(line);
        else if (!line.trimmed().isEmpty())
            cases.back().steps.push_back({line, {}, {}});
    }
    return cases;
}

QStringList corpus::statements()
{
    QStringList statements;
    for (const Case &one : cases()) {
        for (const Step &step : one.steps)
            statements.append(step.statement);
    }
    return statements;
}

QStringList corpus::companyInserts()
{
    QStringList inserts;
    QString head;
    for (const QString &line : linesOf("jetsql/company.txt")) {
        if (line.trimmed().isEmpty()) {
            head.clear();
        } else if (head.isEmpty()) {
            // A line "Table: Column | Column", then a line of values for each row.
            const qsizetype colon = line.indexOf(u':');
            head = "INSERT INTO [" + line.first(colon) + "] ([" + cells(line.sliced(colon + 1)).join("], [") +
                   "]) VALUES (";
        } else {
            QStringList values;
            for (const QString &value : cells(line))
                values.append(value == u"Null" || value == u"''" ? value
                                                                 : u'\'' + QString(value).replace(u'\'', "''") + u'\'');
            inserts.append(head + values.join(", ") + ')');
        }
    }
    return inserts;
}

QStringList corpus::cells(const QString &line)
{
    QStringList parts = line.split(u'|');
    for (QString &part : parts)
        part = part.trimmed();
    return parts;
}

QString corpus::shownText(const QString &text)
{
    return text.isEmpty() || text != text.trimmed() ? u'\'' + text + u'\'' : text;
}
