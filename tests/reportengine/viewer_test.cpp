#include "reportengine/viewer/crviewer.h"
#include "reportengine/viewer/pageview.h"
#include "reportengine/viewer/viewer.h"
#include "tests/reportengine/reportfixture.h"
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>
#include <QTreeView>

namespace {

/// A viewer as staff have it before them.
class ViewerTest : public testing::Test
{
protected:
    void show(std::shared_ptr<Report> report)
    {
        m_viewer.resize(700, 600);
        m_viewer.show();
        m_viewer.setReportSource(std::move(report));
        m_viewer.viewReport();
        m_control = m_viewer.findChild<CRViewer *>("CRViewer");
        ASSERT_TRUE(m_control);
    }
    template <class Control> Control *find(const char *name)
    {
        auto *control = m_viewer.findChild<Control *>(name);
        EXPECT_TRUE(control) << name;
        return control;
    }
    int pageCount()
    {
        int count = 0;
        QMetaObject::invokeMethod(m_control, "pageCount", Q_RETURN_ARG(int, count));
        return count;
    }
    void press(const char *action) { find<QAction>(action)->trigger(); }

    Viewer m_viewer;
    CRViewer *m_control = nullptr;
};

TEST_F(ViewerTest, FillsItsWindowAndShowsTheReport)
{
    show(sampleReport("crptPickTicket", 5));
    EXPECT_EQ(m_viewer.objectName(), "Viewer");
    EXPECT_EQ(m_viewer.windowTitle(), "Report Viewer");
    EXPECT_EQ(m_control->geometry(), m_viewer.rect());
    m_viewer.resize(500, 400);
    EXPECT_EQ(m_control->geometry(), m_viewer.rect());
    EXPECT_EQ(pageCount(), 1);
    EXPECT_EQ(find<QLabel>("pageTotal")->text().trimmed(), "of 1");
}

TEST_F(ViewerTest, GoesFromPageToPage)
{
    show(sampleReport("crptSalesByPart", 800));
    const int pages = pageCount();
    ASSERT_GT(pages, 5);
    auto *number = find<QSpinBox>("pageNumber");
    EXPECT_EQ(number->value(), 1);
    press("nextPage");
    EXPECT_EQ(number->value(), 2);
    press("lastPage");
    EXPECT_EQ(number->value(), pages);
    press("nextPage");
    EXPECT_EQ(number->value(), pages);
    press("previousPage");
    EXPECT_EQ(number->value(), pages - 1);
    press("firstPage");
    EXPECT_EQ(number->value(), 1);
    number->setFocus();
    number->selectAll();
    QTest::keyClicks(number, "4");
    QTest::keyClick(number, Qt::Key_Return);
    EXPECT_EQ(m_control->currentPage(), 3);
    find<QComboBox>("zoom")->setCurrentText("50%");
    EXPECT_EQ(m_control->currentPage(), 3) << "another zoom keeps the page";
}

TEST_F(ViewerTest, CountsThePagesOfALongReportWhileItIsRead)
{
    show(sampleReport("crptNewAvailInv", 60000));
    QTRY_VERIFY(!find<QLabel>("pageTotal")->text().contains('+'));
    EXPECT_GT(pageCount(), 500);
}

TEST_F(ViewerTest, FindsTextThroughTheWholeReport)
{
    auto report = std::shared_ptr<Report>(sampleReport("crptSalesByPart", 800));
    show(report);
    EXPECT_FALSE(m_control->findNext("no such words"));
    EXPECT_TRUE(m_control->findNext("br-1040-80"));
    const int page = m_control->currentPage();
    EXPECT_TRUE(report->pages().page(page)->texts().join('|').contains("BR-1040-80"));
    EXPECT_GT(page, 0);
    auto *text = find<QLineEdit>("findText");
    text->setText("Grand total");
    QTest::keyClick(text, Qt::Key_Return);
    EXPECT_EQ(m_control->currentPage(), pageCount() - 1);
}

TEST_F(ViewerTest, JumpsToAGroup)
{
    auto report = std::shared_ptr<Report>(sampleReport("crptSalesByPart", 800));
    show(report);
    auto *tree = find<QTreeView>("groupTree");
    EXPECT_FALSE(tree->isVisible());
    press("groupTreeToggle");
    EXPECT_TRUE(tree->isVisible());
    const int groups = int(report->pages().groups().nodes(0).size());
    ASSERT_EQ(tree->model()->rowCount(), groups);
    const QModelIndex last = tree->model()->index(groups - 1, 0);
    const QString label = last.data().toString();
    emit tree->clicked(last);
    EXPECT_TRUE(report->pages().page(m_control->currentPage())->texts().contains(label)) << label.toStdString();
    EXPECT_GT(m_control->currentPage(), 0);
}

TEST_F(ViewerTest, WritesWhatIsAskedOfIt)
{
    show(sampleReport("crptPickTicket", 5));
    QTemporaryDir folder;
    for (const char *suffix : {"pdf", "xlsx", "csv", "doc"}) {
        bool written = false;
        const QString path = folder.filePath(QString("r.") + suffix);
        QMetaObject::invokeMethod(m_control, "exportTo", Q_RETURN_ARG(bool, written), Q_ARG(QString, path));
        EXPECT_EQ(written, QString(suffix) != "doc") << suffix;
        EXPECT_EQ(QFile::exists(path), written);
    }
}

TEST_F(ViewerTest, DrawsTheReportOnTheScreen)
{
    show(sampleReport("crptPickTicket", 5));
    const QImage picture = m_viewer.grab().toImage();
    int dark = 0;
    for (int y = 60; y < picture.height(); y += 1) {
        for (int x = 0; x < picture.width(); x += 1)
            dark += qGray(picture.pixel(x, y)) < 80;
    }
    EXPECT_GT(dark, 500) << "there is text on the page";
    if (qEnvironmentVariableIsSet("TAMRICK_PICTURES"))
        m_viewer.grab().save(qEnvironmentVariable("TAMRICK_PICTURES") + "/viewer.png");
}

TEST_F(ViewerTest, WindowsStandSideBySideEachWithItsOwnReport)
{
    show(sampleReport("crptPickTicket", 5));
    Viewer other;
    other.setReportSource(sampleReport("crptPackingSlip", 90));
    other.viewReport();
    EXPECT_EQ(pageCount(), 1);
    EXPECT_GT(other.viewer()->pageCount(), 1);
}

} // namespace
