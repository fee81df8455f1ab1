#include "tools/demo/company.h"

namespace demo {

namespace {

/// A kind of product. All its types come in all sizes and in all its materials.
struct Family
{
    const char *category, *prefix;
    double baseCost; ///< of the one-inch size in the first material
    const char *types[4];
    const char *materials[5];
};

constexpr Family Families[] = {
    {"Cam and Groove Couplings", "CC", 4.10, {"A", "B", "C", "F"}, {"AL", "SS", "BR", "PP", "DI"}},
    {"Ball Valves", "BV", 9.60, {"2P", "3P", "FP", "LK"}, {"BR", "SS", "CS", "PV", "CP"}},
    {"Check Valves", "KV", 11.40, {"SW", "SP", "FT", "WF"}, {"BR", "SS", "CI", "PV", "CP"}},
    {"Hose Barbs", "HB", 1.25, {"ST", "EL", "TE", "MD"}, {"BR", "SS", "NY", "PP", "AL"}},
    {"Hose Clamps", "HC", 0.62, {"WD", "TB", "PN", "BD"}, {"SS", "ZP", "AL", "GS", "NY"}},
    {"Pipe Nipples", "PN", 0.88, {"CL", "02", "04", "06"}, {"BK", "GV", "BR", "SS", "AL"}},
    {"Quick Disconnects", "QD", 6.75, {"HS", "PL", "FM", "MM"}, {"BR", "SS", "ZP", "AL", "AC"}},
    {"Strainers", "YS", 14.20, {"Y", "BK", "DX", "TE"}, {"CI", "SS", "BR", "CS", "PV"}},
    {"Flanges", "FL", 8.30, {"WN", "SO", "BL", "TH"}, {"CS", "SS", "GV", "AL", "PV"}},
    {"Gaskets and Seals", "GS", 0.34, {"CG", "FF", "RG", "OR"}, {"BN", "EP", "FK", "PT", "SI"}},
};

struct Size
{
    const char *code; ///< hundredths of an inch
    double factor;
};

/// The common ones first: a small company carries only those.
constexpr Size Sizes[] = {{"100", 1.0}, {"200", 1.9}, {"075", 0.85}, {"150", 1.4},  {"050", 0.7},
                          {"300", 3.4}, {"125", 1.2}, {"400", 5.2},  {"038", 0.62}, {"025", 0.55}};

/// By the place of the material in the family's list.
constexpr double MaterialFactors[] = {1.0, 2.3, 0.9, 1.25, 1.6};

/// The connection's thread; the first is the usual one and is not written.
constexpr const char *Ends[] = {"", "B", "S", "G", "L"};

constexpr const char *Vendors[] = {"Corry Castings",    "Lakewood Forge",  "Marden Plastics",     "Northway Fasteners",
                                   "Palisade Rubber",   "Quaker Seal",     "Rossford Machining",  "Sable Wire Cloth",
                                   "Tremont Stainless", "Upton Die Works", "Valley Spring Metals"};

/// To the cent.
double rounded(double amount)
{
    return double(qRound64(amount * 100)) / 100;
}

/// What a customer takes at a time: few of what is dear, many of what is cheap.
void sizeUp(Part &part)
{
    part.perPack = part.cost < 2 ? 10 : part.cost < 8 ? 5 : 1;
    part.mostPacks = part.cost < 8 ? 5 : part.cost < 30 ? 8 : 4;
    const int usual = part.perPack * (1 + part.mostPacks) / 2;
    part.minOnHand = usual * 6;
    part.reorderQty = usual * 20;
}

/// The part at a position of the catalogue: the types of all families change fastest, then size, material, end,
/// so that a small catalogue has some of every category. There are 10,000 in all.
Part makePart(int position, Random &random)
{
    constexpr int lines = int(std::size(Families)) * 4;
    const Family &family = Families[position % lines / 4];
    const int variant = position / lines;
    const Size &size = Sizes[variant % 10];
    const int material = variant / 10 % 5;
    const QString end = QString::fromLatin1(Ends[variant / 50]);

    Part part;
    part.number = QString("%1%2-%3-%4")
                      .arg(QLatin1String(family.prefix), QLatin1String(size.code),
                           QLatin1String(family.types[position % 4]), QLatin1String(family.materials[material]));
    if (!end.isEmpty())
        part.number += u'-' + end;
    part.category = QString::fromLatin1(family.category);
    part.cost = rounded(family.baseCost * size.factor * MaterialFactors[material] * (1 + 0.15 * (position % 4)) *
                        (1 + 0.08 * (variant / 50)));
    part.salePrice = rounded(part.cost * random.between(160, 215) / 100.0);
    part.bin = QString("%1-%2-%3")
                   .arg(QChar(u'A' + position % lines / 4))
                   .arg(random.between(1, 24), 2, 10, QLatin1Char('0'))
                   .arg(random.between(1, 6));
    sizeUp(part);
    if (random.perMille(300))
        part.vendor = QString::fromLatin1(random.pick(Vendors));
    if (random.perMille(600))
        part.leadTime = QString("%1 weeks").arg(random.between(2, 10));
    part.weight = random.between(10, 40) + (random.perMille(200) ? 60 : 0);
    return part;
}

/// A sheet names about two parts of five; for the others its customers pay the list price.
void priceOnSheets(Part &part, const QStringList &sheets, Random &random)
{
    static constexpr double shares[] = {0.72, 0.80, 0.88, 0.84};
    for (qsizetype sheet = 0; sheet < sheets.size(); ++sheet)
        part.sheetPrices.push_back(random.perMille(400) ? rounded(part.salePrice * shares[sheet]) : 0);
}

/// Some parts went out of the programme and have the other type of the pair in their place.
void retireSome(std::vector<Part> &parts, Random &random)
{
    for (size_t i = 0; i + 1 < parts.size(); i += 2) {
        if (!random.perMille(50))
            continue;
        parts[i].active = false;
        parts[i].superceded = parts[i + 1].number;
    }
}

} // namespace

void makeParts(Company &company, Random &random)
{
    const int scale = company.options.scale;
    const int count = 120 + (scale - 1) * (10000 - 120) / (MaximumDemoScale - 1);
    for (int i = 0; i < count; ++i) {
        company.parts.push_back(makePart(i, random));
        priceOnSheets(company.parts.back(), company.sheets, random);
    }
    retireSome(company.parts, random);
    // The plant stocks everything, the others what sells there. A large company has more warehouses, and each a smaller
    // part of the catalogue.
    const int share = scale < 10 ? 650 : 250;
    for (size_t warehouse = 0; warehouse < company.warehouses.size(); ++warehouse) {
        company.carried.emplace_back();
        for (int part = 0; part < count; ++part) {
            if (company.parts[size_t(part)].active && (warehouse == 0 || random.perMille(share)))
                company.carried.back().push_back(part);
        }
    }
}

} // namespace demo
