#pragma once

#include "tools/demo/company.h"

namespace demo {

struct Town
{
    const char *city, *state, *zip; ///< the first three digits of the postal code
    const char *area, *territory;
};

/// An address in a town, or in one of sixty, with telephone numbers that nobody has.
Address makeAddress(const Town &town, Random &random);
Address makeAddress(Random &random);
QString makePerson(Random &random);
/// That many different names of firms, in an order that depends on the seed.
QStringList makeFirmNames(int count, Random &random);

} // namespace demo
