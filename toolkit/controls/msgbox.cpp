#include "toolkit/controls/msgbox.h"

#include "data/values/runtimeerror.h"
#include "toolkit/controls/programfocus.h"
#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPointer>
#include <QScreen>

namespace {
int shown = 0;
std::function<void()> beforeBoxes = [] {};

/// The window a box belongs to. A list that just dropped down may still be the active one, and goes with its form.
QWidget *windowBehind()
{
    QWidget *window = QApplication::activeWindow();
    while (window && window->windowType() == Qt::Popup)
        window = window->parentWidget() ? window->parentWidget()->window() : nullptr;
    return window;
}

/// The form whose routine asks: that of the field being left, or the one with the focus, or else the active one.
QWidget *formAsking(QWidget *window)
{
    QWidget *left = ProgramFocus::leaving();
    for (QWidget *widget = left ? left : QApplication::focusWidget(); widget; widget = widget->parentWidget())
        if (qobject_cast<QMdiSubWindow *>(widget))
            return widget;
    const auto *area = window ? window->findChild<QMdiArea *>() : nullptr;
    return area ? area->activeSubWindow() : nullptr;
}

class Box : public QMessageBox
{
public:
    Box(const QString &prompt, const QString &title, StandardButtons buttons)
        : QMessageBox(NoIcon, title.isEmpty() ? QString::fromLatin1(ProgramTitle) : title, {}, buttons, windowBehind())
    {
        // A box takes no more, and a text of megabytes would keep its layout busy for minutes.
        constexpr qsizetype mostCharacters = 1024;
        setText(prompt.left(mostCharacters));
        // A name with a < in it is no markup.
        setTextFormat(Qt::PlainText);
        setWindowModality(Qt::ApplicationModal);
        placeOver(formAsking(parentWidget()));
        for (QAbstractButton *button : this->buttons())
            button->setIcon({}); // desktops without an icon theme put pictures on them
        ++shown;
    }

    /// In the middle of the form, but never beyond the screen's edges.
    void placeOver(const QWidget *form)
    {
        if (!form || !form->isVisible() || form->isMinimized())
            return;
        adjustSize();
        QRect place = rect();
        place.moveCenter(form->mapToGlobal(form->rect().center()));
        const QRect room = form->screen()->availableGeometry();
        move(std::clamp(place.x(), room.left(), std::max(room.left(), room.right() - place.width())),
             std::clamp(place.y(), room.top(), std::max(room.top(), room.bottom() - place.height())));
    }

    int answer()
    {
        const QPointer<QWidget> former = parentWidget();
        const int button = exec();
        // Some systems activate the window behind later or never; the routine that goes on may set the focus in it.
        const QWidget *active = QApplication::activeWindow();
        if (former && (!active || active == this))
            QApplication::setActiveWindow(former);
        return button;
    }
};

/// A box that only its buttons answer.
class Question : public Box
{
public:
    Question(const QString &prompt, const QString &title) : Box(prompt, title, Yes | No)
    {
        // The routine that asks knows Yes and No alone, so that neither Esc nor the close mark may answer.
        setWindowFlag(Qt::WindowCloseButtonHint, false);
        setDefaultButton(Yes);
    }

protected:
    void closeEvent(QCloseEvent *event) override { event->ignore(); }
    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->matches(QKeySequence::Cancel))
            event->ignore();
        else
            Box::keyPressEvent(event);
    }
};
} // namespace

/// What was written is on the disk before anybody is told of it.
void MsgBox(const QString &prompt, const QString &title)
{
    beforeBoxes();
    Box(prompt, title, QMessageBox::Ok).answer();
}

bool MsgBoxYesNo(const QString &prompt, const QString &title)
{
    beforeBoxes();
    return Question(prompt, title).answer() == QMessageBox::Yes;
}

void showRuntimeError(const RuntimeError &error)
{
    const QString prompt = QString("Run-time error '%1':\n\n%2").arg(error.number()).arg(error.description());
    try {
        beforeBoxes();
    } catch (const RuntimeError &) {
        // One error has ended the program already; that the disk fails too would only hide it.
    }
    Box(prompt, {}, QMessageBox::Ok).answer();
}

void setBeforeBoxes(std::function<void()> action)
{
    beforeBoxes = std::move(action);
}

int messageBoxesShown()
{
    return shown;
}
