#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

/// The folders from the bottom up, each with those it may include from besides itself.
struct Layer
{
    QString folder;
    QStringList mayUse;
};

const QList<Layer> &layers()
{
    static const QStringList engine{"data", "toolkit"};
    static const QStringList reports = engine + QStringList{"reportengine"};
    static const QStringList forms = reports + QStringList{"reports"};
    static const QList<Layer> all{
        {"data", {}},
        {"toolkit", {"data"}},
        {"reportengine", engine},
        {"reports", reports},
        {"master", engine},
        {"inventory", engine},
        {"orders", forms + QStringList{"inventory"}},
        {"shipping", forms + QStringList{"inventory", "orders"}},
        {"billing", forms + QStringList{"inventory", "orders"}},
        {"app", forms + QStringList{"master", "inventory", "orders", "shipping", "billing"}},
        {"tools", {"data"}},
    };
    return all;
}

QString folderOf(const QString &include)
{
    for (const Layer &layer : layers()) {
        if (include.startsWith(layer.folder + '/'))
            return layer.folder;
    }
    return {};
}

QDir root()
{
    return QDir(QStringLiteral(TAMRICK_TEST_DATA "/.."));
}

QStringList sourcesIn(const QString &folder)
{
    QStringList files;
    QDirIterator it(root().filePath(folder), {"*.cpp", "*.h"}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files << it.next();
    return files;
}

QString contentOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

} // namespace

TEST(Conventions, EachFolderIncludesOnlyFromTheFoldersBelowIt)
{
    static const QRegularExpression include(R"re(^\s*#include "([^"]+)")re", QRegularExpression::MultilineOption);
    for (const Layer &layer : layers()) {
        const QStringList files = sourcesIn(layer.folder);
        for (const QString &path : files) {
            auto match = include.globalMatch(contentOf(path));
            while (match.hasNext()) {
                const QString included = match.next().captured(1);
                const QString target = folderOf(included);
                EXPECT_TRUE(target.isEmpty() || target == layer.folder || layer.mayUse.contains(target))
                    << path.toStdString() << " includes " << included.toStdString();
            }
        }
    }
}

TEST(Conventions, TheDataLayerAndTheAdministratorsToolKnowNoWidget)
{
    static const QRegularExpression widget(
        R"re(#include <(Q\w*(Widget|Dialog|Painter|Application|Window|Font|Gui)\w*)[/>])re");
    for (const QString &folder : {QStringLiteral("data"), QStringLiteral("tools")}) {
        for (const QString &path : sourcesIn(folder)) {
            const auto match = widget.match(contentOf(path));
            const QString found = match.captured(1);
            EXPECT_TRUE(!match.hasMatch() || found == "QCoreApplication")
                << path.toStdString() << " includes " << found.toStdString();
        }
    }
}

TEST(Conventions, NoFormKnowsWhichEngineIsUnderneath)
{
    for (const Layer &layer : layers()) {
        if (layer.folder == "data" || layer.folder == "tools")
            continue;
        for (const QString &path : sourcesIn(layer.folder)) {
            const QString content = contentOf(path);
            EXPECT_FALSE(content.contains("sqlite3.h") || content.contains("data/engines/")) << path.toStdString();
        }
    }
}

TEST(Conventions, TheDataLayerSpeaksToAnEngineThroughItsInterfaceAlone)
{
    static const QRegularExpression foreign(R"re(sqlite3|libpq|\bPQ\w+\(|#include "data/engines/(?!engines\.h"))re");
    for (const QString folder : {"data/dao", "data/engine", "data/jetsql", "data/schema"}) {
        for (const QString &path : sourcesIn(folder)) {
            const auto match = foreign.match(contentOf(path));
            EXPECT_FALSE(match.hasMatch()) << path.toStdString() << " has " << match.captured().toStdString();
        }
    }
}
