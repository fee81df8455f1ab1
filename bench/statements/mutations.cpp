#include "bench/statements/campaigns.h"
#include "bench/statements/mutation.h"
#include "data/engines/sqlite/dialect.h"
#include "data/jetsql/translator.h"
#include "data/values/runtimeerror.h"
#include "tests/jetsql/corpus.h"

#include <QFile>
#include <cstdio>

QStringList mutations(Extent extent)
{
    const SqliteParser parser;
    const QStringList corpus = corpus::statements();
    std::mt19937_64 random(extent.seed);
    QStringList faults;
    int translated = 0;
    for (int i = 0; i < extent.count && faults.isEmpty(); ++i) {
        const QString statement = mutated(corpus, random);
        if (const QString fault = faultOf(parser, statement); !fault.isEmpty())
            faults += statement + '\n' + fault;
        try {
            jetsql::translate(statement, parser.catalog(), sqliteDialect());
            ++translated;
        } catch (const RuntimeError &error) {
            if (error.description().isEmpty())
                faults += statement + "\nan error without words";
        }
    }
    // Enough of them must get through for the writer to be tried as well as the parser.
    if (translated < extent.count / 40)
        faults += "hardly any statement got through";
    std::printf("mutations: %d statements, %d of them translated\n", extent.count, translated);
    return faults;
}

QStringList formerFuzzing()
{
    const SqliteParser parser;
    QFile kept(TAMRICK_TEST_DATA "/../bench/fuzz/corpus/jetsql.txt");
    if (!kept.open(QIODevice::ReadOnly))
        return {"no such file: " + kept.fileName()};
    const QStringList statements = QString::fromUtf8(kept.readAll()).split(u'\n', Qt::SkipEmptyParts);
    QStringList faults;
    for (const QString &statement : statements) {
        if (const QString fault = faultOf(parser, statement); !fault.isEmpty())
            faults += statement + '\n' + fault;
    }
    std::printf("former fuzzing: %d statements\n", int(statements.size()));
    return faults;
}

QStringList constants(Extent extent)
{
    const SqliteParser parser;
    const auto translated = [&parser](const QString &statement) {
        return jetsql::translate(statement, parser.catalog(), sqliteDialect());
    };
    std::mt19937_64 random(extent.seed);
    QStringList faults;
    int parameters = 0, others = 0;
    for (const QString &statement : corpus::statements()) {
        jetsql::Translation translation;
        try {
            translation = translated(statement);
        } catch (const RuntimeError &) {
            continue;
        }
        parameters += int(translation.parameters.size());
        for (int i = 0; i < extent.count && !translation.parameters.empty(); ++i) {
            const QString other = withOtherConstants(statement, translation.parameters, random);
            others += other != statement;
            const jetsql::Translation same = translated(other);
            if (jetsql::fingerprintOf(other).key != jetsql::fingerprintOf(statement).key)
                faults += "another fingerprint: " + other;
            if (same.sqlWithParameters != translation.sqlWithParameters ||
                same.columns.size() != translation.columns.size())
                faults += "another translation: " + other;
        }
    }
    if (parameters < 200 || others < 50 * extent.count)
        faults += "too few constants to tell";
    std::printf("constants: %d parameters, %d other statements\n", parameters, others);
    return faults;
}
