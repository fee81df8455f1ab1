#pragma once

#include "tests/jetsql/sqlcompany.h"
#include <random>

/// The statements of the corpus, without what they bring.
QStringList corpusStatements();

/// A statement changed at random: characters and whole words dropped, doubled, put in, or taken from another one.
QString mutated(const QStringList &corpus, std::mt19937 &random);

/// What is wrong with how the front end takes a text, empty when nothing is: it must give a statement that SQLite
/// accepts, or a run-time error.
QString faultOf(const SqlCompany &company, const QString &statement);

/// A statement with other constants in those parameters where its translation lets any other stand that fits.
QString withOtherConstants(const QString &statement, const std::vector<jetsql::BindParameter> &parameters,
                           std::mt19937 &random);
