#pragma once

#include <QList>
#include <QObject>
#include <QRect>
#include <QString>

/// Answers message boxes as a user would, with the mouse. Each box that comes up must be the next one expected; any
/// other fails the test and is closed.
class Boxes : public QObject
{
    Q_OBJECT
public:
    Boxes();
    ~Boxes() override;

    /// The next box has this title and prompt, and is answered by the button with this text ("OK", "Yes", "No").
    void expect(const QString &title, const QString &prompt, const QString &button = QStringLiteral("OK"));
    /// Fails the test when an expected box has not come up.
    void verify();
    /// Where on the screen the last box stood.
    QRect lastPlace() const { return m_lastPlace; }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Expected
    {
        QString title, prompt, button;
    };
    void answer(class QMessageBox *box);

    QList<Expected> m_expected;
    QRect m_lastPlace;
};
