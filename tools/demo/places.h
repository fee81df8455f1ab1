#pragma once

#include "tools/demo/company.h"

namespace demo {

/// An address in one of the towns, with a telephone number that nobody has.
Address makeAddress(Random &random);
QString makePerson(Random &random);
/// That many different names of firms, in an order that depends on the seed.
QStringList makeFirmNames(int count, Random &random);

} // namespace demo
