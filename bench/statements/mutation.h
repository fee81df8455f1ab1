#pragma once

#include "bench/statements/sqliteparser.h"
#include "data/jetsql/bindparameter.h"
#include <QStringList>
#include <random>

/// A statement changed at random: characters and whole words dropped, doubled, put in, or taken from another one.
QString mutated(const QStringList &corpus, std::mt19937_64 &random);

/// What is wrong with how the front end takes a text, empty when nothing is: it must give a statement that SQLite
/// accepts, or a run-time error.
QString faultOf(const SqliteParser &parser, const QString &statement);

/// A statement with other constants in those parameters where its translation lets any other stand that fits.
QString withOtherConstants(const QString &statement, const std::vector<jetsql::BindParameter> &parameters,
                           std::mt19937_64 &random);
