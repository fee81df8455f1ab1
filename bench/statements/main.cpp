#include "bench/statements/campaigns.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <cstdio>

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addPositionalArgument("campaign", "mutations, constants, differences, joins or textorder");
    parser.addOptions({{"count", "how many statements, constants of each, companies or texts", "n", "100"},
                       {"seed", "of the random choices", "n", "1"}});
    parser.addHelpOption();
    parser.process(application);
    const Extent extent{parser.value("count").toInt(), parser.value("seed").toUInt()};
    const QString campaign = parser.positionalArguments().value(0);
    QStringList faults;
    if (campaign == "mutations")
        faults = mutations(extent) + formerFuzzing();
    else if (campaign == "constants")
        faults = constants(extent);
    else if (campaign == "differences")
        faults = differences(extent);
    else if (campaign == "joins")
        faults = joins(extent);
    else if (campaign == "textorder")
        faults = textOrder(extent);
    else
        parser.showHelp(2);
    for (const QString &fault : faults)
        std::printf("%s\n", qPrintable(fault));
    std::printf("%d faults\n", int(faults.size()));
    return faults.isEmpty() ? 0 : 1;
}
