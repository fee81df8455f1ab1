#include "tools/demo/places.h"

namespace demo {

namespace {

constexpr Town Towns[] = {
    {"Akron", "OH", "443", "330", "Midwest"},
    {"Albany", "NY", "122", "518", "Northeast"},
    {"Allentown", "PA", "181", "610", "Northeast"},
    {"Amarillo", "TX", "791", "806", "Southwest"},
    {"Atlanta", "GA", "303", "404", "Southeast"},
    {"Baton Rouge", "LA", "708", "225", "Southeast"},
    {"Birmingham", "AL", "352", "205", "Southeast"},
    {"Boise", "ID", "837", "208", "West"},
    {"Buffalo", "NY", "142", "716", "Northeast"},
    {"Cedar Rapids", "IA", "524", "319", "Midwest"},
    {"Charleston", "WV", "253", "304", "Southeast"},
    {"Chattanooga", "TN", "374", "423", "Southeast"},
    {"Cleveland", "OH", "441", "216", "Midwest"},
    {"Columbus", "OH", "432", "614", "Midwest"},
    {"Corpus Christi", "TX", "784", "361", "Southwest"},
    {"Davenport", "IA", "528", "563", "Midwest"},
    {"Denver", "CO", "802", "303", "West"},
    {"Duluth", "MN", "558", "218", "Midwest"},
    {"El Paso", "TX", "799", "915", "Southwest"},
    {"Erie", "PA", "165", "814", "Northeast"},
    {"Evansville", "IN", "477", "812", "Midwest"},
    {"Fort Wayne", "IN", "468", "260", "Midwest"},
    {"Fresno", "CA", "937", "559", "West"},
    {"Grand Rapids", "MI", "495", "616", "Midwest"},
    {"Green Bay", "WI", "543", "920", "Midwest"},
    {"Greenville", "SC", "296", "864", "Southeast"},
    {"Hartford", "CT", "061", "860", "Northeast"},
    {"Houston", "TX", "770", "713", "Southwest"},
    {"Huntsville", "AL", "358", "256", "Southeast"},
    {"Jacksonville", "FL", "322", "904", "Southeast"},
    {"Kalamazoo", "MI", "490", "269", "Midwest"},
    {"Knoxville", "TN", "379", "865", "Southeast"},
    {"Lexington", "KY", "405", "859", "Southeast"},
    {"Lincoln", "NE", "685", "402", "Midwest"},
    {"Lubbock", "TX", "794", "806", "Southwest"},
    {"Manchester", "NH", "031", "603", "Northeast"},
    {"Mobile", "AL", "366", "251", "Southeast"},
    {"Oklahoma City", "OK", "731", "405", "Southwest"},
    {"Peoria", "IL", "616", "309", "Midwest"},
    {"Portland", "OR", "972", "503", "West"},
    {"Providence", "RI", "029", "401", "Northeast"},
    {"Roanoke", "VA", "240", "540", "Southeast"},
    {"Rockford", "IL", "611", "815", "Midwest"},
    {"Sacramento", "CA", "958", "916", "West"},
    {"Savannah", "GA", "314", "912", "Southeast"},
    {"Scranton", "PA", "185", "570", "Northeast"},
    {"Spokane", "WA", "992", "509", "West"},
    {"Springfield", "MO", "658", "417", "Midwest"},
    {"Syracuse", "NY", "132", "315", "Northeast"},
    {"Tacoma", "WA", "984", "253", "West"},
    {"Toledo", "OH", "436", "419", "Midwest"},
    {"Tucson", "AZ", "857", "520", "Southwest"},
    {"Tulsa", "OK", "741", "918", "Southwest"},
    {"Wichita", "KS", "672", "316", "Midwest"},
    {"Worcester", "MA", "016", "508", "Northeast"},
    {"York", "PA", "174", "717", "Northeast"},
};

constexpr const char *Streets[] = {"Industrial",  "Commerce", "Mill",       "Foundry",   "Railroad",     "Enterprise",
                                   "Harbor",      "Canal",    "Union",      "Quarry",    "Lakeview",     "Maple",
                                   "Chestnut",    "Second",   "Washington", "Jefferson", "Distribution", "Airport",
                                   "Old Mill",    "Ridge",    "Depot",      "Center",    "Riverside",    "Technology",
                                   "County Line", "Orchard",  "Water",      "Southgate", "Northfield",   "Prospect"};

constexpr const char *StreetKinds[] = {"Street", "Avenue", "Drive", "Road", "Parkway", "Boulevard", "Lane", "Court"};

constexpr const char *FirstNames[] = {"Alan",   "Beth",  "Carl", "Dana",   "Ellen",  "Frank", "Gina",
                                      "Howard", "Irene", "Joel", "Karen",  "Louis",  "Maria", "Neil",
                                      "Olivia", "Paul",  "Rita", "Samuel", "Teresa", "Victor"};

constexpr const char *LastNames[] = {"Abbott", "Bauer",  "Castillo", "Draper", "Engel",  "Fowler", "Grant",
                                     "Hobbs",  "Ibarra", "Jensen",   "Kowal",  "Larkin", "Mercer", "Novak",
                                     "Ortega", "Pruitt", "Reyes",    "Stroud", "Tilden", "Vance",  "Whitaker"};

constexpr const char *FirmWords[] = {
    "Allegheny",  "Alder Creek", "Anchor Bay",    "Apex",        "Arrowhead",   "Atlas",       "Beacon",
    "Bedford",    "Bell River",  "Benton",        "Black Rock",  "Blue Ridge",  "Bristol",     "Brookside",
    "Calumet",    "Cardinal",    "Carver",        "Cascade",     "Cedar Point", "Central",     "Chippewa",
    "Clearwater", "Coastal",     "Colonial",      "Continental", "Copper Hill", "Crescent",    "Crown Point",
    "Cumberland", "Delta",       "Dover",         "Eagle Rock",  "Eastern",     "Elk River",   "Emerald",
    "Fairview",   "Falcon",      "Five Forks",    "Flint Hills", "Frontier",    "Garrison",    "Gateway",
    "Genesee",    "Glenwood",    "Golden Plains", "Granite",     "Great Lakes", "Gulf",        "Hampton",
    "Harmon",     "Heartland",   "Highland",      "Holbrook",    "Horizon",     "Hudson",      "Huron",
    "Inland",     "Iron Range",  "Jackson",       "Juniper",     "Kenton",      "Keystone",    "Lakeshore",
    "Langford",   "Liberty",     "Lone Star",     "Madison",     "Marlow",      "Meridian",    "Mesa",
    "Midland",    "Monroe",      "Niagara",       "Northern",    "Oak Hill",    "Ohio Valley", "Osage",
    "Pacific",    "Palmetto",    "Patriot",       "Pinnacle",    "Pioneer",     "Prairie",     "Quincy",
    "Redwood",    "Sandusky",    "Shenandoah",    "Sierra",      "Stanton",     "Summit",      "Tidewater",
    "Tri County", "Union",       "Vanguard",      "Wabash",      "Westfield"};

constexpr const char *FirmKinds[] = {"Pump Supply",
                                     "Hose and Rubber",
                                     "Industrial Supply",
                                     "Pipe and Valve",
                                     "Mechanical",
                                     "Equipment Co",
                                     "Process Controls",
                                     "Petroleum Service",
                                     "Farm Supply",
                                     "Fluid Power",
                                     "Chemical",
                                     "Water Works",
                                     "Mill Supply",
                                     "Plumbing Supply",
                                     "Marine",
                                     "Tank and Trailer",
                                     "Construction",
                                     "Fire Equipment",
                                     "Dairy Systems",
                                     "Brewing",
                                     "Oilfield Supply",
                                     "Transfer Systems",
                                     "Rental and Supply",
                                     "Irrigation",
                                     "Packaging",
                                     "Foods",
                                     "Paper",
                                     "Steel Fabricators",
                                     "Coatings",
                                     "Environmental",
                                     "Hydraulics",
                                     "Machine Works",
                                     "Mining Supply",
                                     "Asphalt",
                                     "Concrete",
                                     "Gas Service",
                                     "Boiler and Burner",
                                     "Refining",
                                     "Terminals",
                                     "Truck Parts",
                                     "Sprinkler",
                                     "Contractors",
                                     "Textiles",
                                     "Growers",
                                     "Energy Services",
                                     "Maintenance Supply",
                                     "Utilities",
                                     "Distributing",
                                     "Fabrication",
                                     "Compressor",
                                     "Filtration",
                                     "Sanitary Products",
                                     "Fittings",
                                     "Fleet Service",
                                     "Vacuum Trucks",
                                     "Cooperative"};

QString text(const char *latin)
{
    return QString::fromLatin1(latin);
}

/// The exchange 555 with a line from 0100 to 0199 is never given to anybody.
QString telephone(const Town &town, Random &random)
{
    return QString("(%1) 555-01%2").arg(text(town.area)).arg(random.below(100), 2, 10, QLatin1Char('0'));
}

} // namespace

Address makeAddress(Random &random)
{
    return makeAddress(random.pick(Towns), random);
}

Address makeAddress(const Town &town, Random &random)
{
    Address address;
    address.line1 = QString("%1 %2 %3")
                        .arg(random.between(1, 99) * 10 + random.below(10) * 101)
                        .arg(text(random.pick(Streets)), text(random.pick(StreetKinds)));
    if (random.perMille(180))
        address.line2 = QString("Suite %1").arg(random.between(1, 40) * 10);
    address.city = text(town.city);
    address.state = text(town.state);
    address.zip = text(town.zip) + QString("%1").arg(random.between(1, 60), 2, 10, QLatin1Char('0'));
    address.phone = telephone(town, random);
    address.fax = telephone(town, random);
    address.territory = text(town.territory);
    return address;
}

QString makePerson(Random &random)
{
    const QString first = text(random.pick(FirstNames));
    return first + u' ' + text(random.pick(LastNames));
}

QStringList makeFirmNames(int count, Random &random)
{
    std::vector<QString> names;
    for (const char *word : FirmWords) {
        for (const char *kind : FirmKinds)
            names.push_back(text(word) + u' ' + text(kind));
    }
    // More than 5,000, so that the largest company needs none of them twice.
    random.shuffle(names);
    return QStringList(names.begin(), names.begin() + count);
}

} // namespace demo
