#include "tests/support/company.h"
#include "toolkit/controls/mousepointer.h"
#include "toolkit/controls/msgbox.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QMessageBox>
#include <QTimer>

namespace {
class MessagesTest : public CompanyTest
{
protected:
    /// Runs `look` on the next box while it is up.
    static void whileUp(std::function<void(QMessageBox *)> look)
    {
        QTimer::singleShot(0, qApp, [look] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            ASSERT_TRUE(box);
            look(box);
        });
    }
    static QStringList buttons(QMessageBox *box)
    {
        QStringList texts;
        for (QAbstractButton *button : box->buttons())
            texts += button->text().remove('&');
        texts.sort();
        return texts;
    }
};

TEST_F(MessagesTest, APlainBoxHasTitlePromptAndOkAlone)
{
    boxes.expect("Required Fields", "A <b>plain</b> prompt.");
    whileUp([](QMessageBox *box) {
        EXPECT_EQ(buttons(box), QStringList{"OK"});
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
    });
    MsgBox("A <b>plain</b> prompt.", "Required Fields");
    boxes.expect("Tamrick Inventory Management", "No title.");
    MsgBox("No title.");
}

TEST_F(MessagesTest, AQuestionIsAnsweredByItsButtonsAloneAndYesIsTheDefault)
{
    boxes.expect("Confirm", "Sure?", "Yes");
    whileUp([](QMessageBox *box) {
        EXPECT_EQ(buttons(box), (QStringList{"No", "Yes"}));
        EXPECT_EQ(box->defaultButton(), box->button(QMessageBox::Yes));
        QTest::keyClick(box, Qt::Key_Escape);
        box->close();
        EXPECT_TRUE(box->isVisible());
    });
    EXPECT_TRUE(MsgBoxYesNo("Sure?", "Confirm"));
    boxes.expect("Confirm", "Sure?", "No");
    EXPECT_FALSE(MsgBoxYesNo("Sure?", "Confirm"));
}

TEST_F(MessagesTest, ABoxOverADroppedListBelongsToTheWindowBehindTheList)
{
    QWidget window;
    QComboBox list(&window);
    list.addItem("one");
    window.show();
    list.showPopup();
    QApplication::setActiveWindow(list.view()->window());
    ASSERT_EQ(QApplication::activeWindow()->windowType(), Qt::Popup);
    boxes.expect("Title", "Prompt");
    whileUp([&](QMessageBox *box) { EXPECT_EQ(box->parentWidget(), &window); });
    MsgBox("Prompt", "Title");
}

TEST_F(MessagesTest, TheHourglassIsAssignedAndNotCounted)
{
    setHourglass();
    setHourglass();
    ASSERT_TRUE(QGuiApplication::overrideCursor());
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    QGuiApplication::setOverrideCursor(Qt::BusyCursor); // as Qt puts one up over another
    setDefaultPointer();
    EXPECT_FALSE(QGuiApplication::overrideCursor());
}
} // namespace
