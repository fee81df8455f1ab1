#include "tests/support/datafile.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <QWindow>
#include <gtest/gtest.h>

namespace {

/// Stands for the system's browser.
class Browser : public QTextBrowser
{
public:
    Browser() { QDesktopServices::setUrlHandler("file", this, "setSource"); }
    ~Browser() override { QDesktopServices::unsetUrlHandler("file"); }
    QStringList opened;

protected:
    void doSetSource(const QUrl &url, QTextDocument::ResourceType) override { opened += url.toLocalFile(); }
};

TEST(Handbook, OpensByF1FromEveryWindow)
{
    const QString folder = QCoreApplication::applicationDirPath() + "/docs/handbook";
    ASSERT_TRUE(QDir().mkpath(folder));
    QFile page(folder + "/index.html");
    ASSERT_TRUE(page.open(QIODevice::WriteOnly));
    Browser browser;
    const auto press = [](QWidget *window, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(window->window()->windowHandle(), Qt::Key_F1, modifiers);
    };
    QWidget window;
    window.show();
    press(&window);
    EXPECT_EQ(browser.opened, QStringList(page.fileName()));
    press(&window, Qt::ControlModifier);
    EXPECT_EQ(browser.opened.size(), 1);

    QDialog box;
    QTimer::singleShot(0, &box, [&] {
        press(&box);
        box.reject();
    });
    box.exec();
    EXPECT_EQ(browser.opened.size(), 2) << "over a box too";
    page.remove();
    press(&window);
    EXPECT_EQ(browser.opened.size(), 2) << "nothing to open";
}

TEST(Handbook, RefersToNothingThatIsMissingAndExplainsTheErrorsThatUsersMeet)
{
    const QDir folder(QStringLiteral(TAMRICK_TEST_DATA) + "/../docs/handbook");
    const QString text = linesOf("../docs/handbook/index.html").join('\n');
    static const QRegularExpression references("(?:href|src)=\"([^\"]*)\"");
    int count = 0;
    for (const auto &match : references.globalMatch(text)) {
        const QString target = match.captured(1);
        EXPECT_TRUE(target.startsWith('#') ? text.contains("id=\"" + target.mid(1) + "\"") : folder.exists(target))
            << target.toStdString();
        ++count;
    }
    EXPECT_GT(count, 10);
    for (const int number :
         {5, 6, 7, 9, 13, 53, 62, 75, 94, 383, 482, 3024, 3031, 3044, 3045, 3049, 3051, 3055, 3075, 3218, 3343})
        EXPECT_TRUE(text.contains(QRegularExpression(QString("<td>([0-9]+, )*%1(, [0-9]+)*</td>").arg(number))))
            << number;
}

} // namespace
