#pragma once

#include "app/mdi.h"
#include "tests/support/boxes.h"
#include "tests/support/testclock.h"
#include <QDir>
#include <QString>
#include <QTemporaryDir>
#include <memory>

class FormDriver;

/// The program on a demo company on a fixed day, and where its pictures go.
class Studio
{
public:
    Studio(const QDir &target, int scale);
    ~Studio();

    /// Clicks a menu entry.
    void menu(const QString &name);
    /// The main window with what is open in it, at its size or a smaller one that suits the form.
    void takeWindow(const QString &picture, QSize size = {1180, 760});
    /// The newest report window as a PDF named like the picture; closes it.
    void takeReport(const QString &picture);
    /// Closes every window in the main window.
    void clear();
    static void settle();

    Boxes boxes;

private:
    QDir m_target;
    QTemporaryDir m_folder;
    TestClock m_clock;
    std::unique_ptr<MDI> m_mdi;
};

/// The windows that staff work in, filled.
void takeWindows(Studio &studio);
/// Every report and document.
void takeDocuments(Studio &studio);
