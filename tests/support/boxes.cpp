#include "tests/support/boxes.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <gtest/gtest.h>

Boxes::Boxes()
{
    qApp->installEventFilter(this);
}

Boxes::~Boxes()
{
    qApp->removeEventFilter(this);
}

void Boxes::expect(const QString &title, const QString &prompt, const QString &button)
{
    m_expected.append({title, prompt, button});
}

void Boxes::verify()
{
    for (const Expected &box : std::as_const(m_expected))
        ADD_FAILURE() << "no box came up that is titled " << qPrintable(box.title) << " and says "
                      << qPrintable(box.prompt);
    m_expected.clear();
}

bool Boxes::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show)
        if (auto *box = qobject_cast<QMessageBox *>(watched))
            QMetaObject::invokeMethod(
                box, [this, box] { answer(box); }, Qt::QueuedConnection);
    return false;
}

void Boxes::answer(QMessageBox *box)
{
    m_lastPlace = box->geometry();
    QString wanted;
    if (m_expected.isEmpty()) {
        ADD_FAILURE() << "unexpected box titled " << qPrintable(box->windowTitle()) << ": " << qPrintable(box->text());
    } else {
        const Expected expected = m_expected.takeFirst();
        EXPECT_EQ(box->windowTitle().toStdString(), expected.title.toStdString());
        EXPECT_EQ(box->text().toStdString(), expected.prompt.toStdString());
        EXPECT_EQ(box->icon(), QMessageBox::NoIcon);
        wanted = expected.button;
    }
    const QList<QAbstractButton *> buttons = box->buttons();
    for (QAbstractButton *button : buttons) {
        if (button->text().remove(u'&') == wanted) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    EXPECT_TRUE(wanted.isEmpty()) << "the box has no button " << qPrintable(wanted);
    QTest::mouseClick(buttons.first(), Qt::LeftButton); // a question asked until Yes would never end
}
