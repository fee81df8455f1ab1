#include "app/about.h"

#include "app/systeminformation.h"
#include "toolkit/controls/msgbox.h"
#include "toolkit/forms/formlayout.h"
#include <QProcess>
#include <QVBoxLayout>

frmAbout::frmAbout() : Form("frmAbout", "About Screen")
{
    QLabel *lblTitle = addLabel("lblTitle", "Inventory Management Software");
    QLabel *lblVersion = addLabel("lblVersion", "Version 1.7 3/30/2011");
    QPushButton *cmdOK = addButton("cmdOK", "OK");
    QPushButton *cmdSysInfo = addButton("cmdSysInfo", "&System Info...");

    QFont large = lblTitle->font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    large.setBold(true);
    lblTitle->setFont(large);

    auto *page = new QVBoxLayout(this);
    page->setContentsMargins(28, 24, 28, 20);
    page->setSpacing(10);
    page->addWidget(lblTitle);
    page->addWidget(lblVersion);
    page->addSpacing(20);
    page->addLayout(buttonRow({cmdOK, cmdSysInfo}));
    page->setSizeConstraint(QLayout::SetFixedSize);
    setResizable(false);
    setTabOrder({cmdOK, cmdSysInfo});

    connect(cmdOK, &QPushButton::clicked, this, &frmAbout::cmdOK_Click);
    connect(cmdSysInfo, &QPushButton::clicked, this, &frmAbout::cmdSysInfo_Click);
}

void frmAbout::cmdOK_Click()
{
    unload();
}

void frmAbout::cmdSysInfo_Click()
{
    const QString tool = systemInformationTool();
    // One that is named and does not start is as good as none.
    if (tool.isEmpty() || !QProcess::startDetached(tool, {}))
        MsgBox("System Information Is Unavailable At This Time");
}
