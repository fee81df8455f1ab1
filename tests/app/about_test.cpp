#include "tests/support/desk.h"

namespace {
class AboutTest : public DeskTest
{
};

TEST_F(AboutTest, TellsTitleAndVersionAndCloses)
{
    FormDriver about("frmAbout");
    EXPECT_EQ(about.form()->windowTitle(), "About Screen");
    EXPECT_EQ(about.text("lblTitle"), "Inventory Management Software");
    EXPECT_EQ(about.text("lblVersion"), "Version 1.7 3/30/2011");
    EXPECT_EQ(about.text("cmdSysInfo"), "&System Info...");
    about.click("cmdOK");
    EXPECT_FALSE(about.isLoaded());
}

TEST_F(AboutTest, WithoutASystemInformationToolItSaysSo)
{
    FormDriver about("frmAbout");
    boxes.expect("Tamrick Inventory Management", "System Information Is Unavailable At This Time");
    about.key(Qt::Key_S, Qt::AltModifier);
    EXPECT_TRUE(about.isLoaded());
}
} // namespace
