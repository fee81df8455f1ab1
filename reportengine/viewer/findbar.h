#pragma once

#include <QToolBar>

class QLabel;
class QLineEdit;
enum class PageIcon;

/// The viewer's row for finding a text. Stays away until it is asked for, so that it has room in the narrowest window.
class FindBar : public QToolBar
{
    Q_OBJECT
public:
    explicit FindBar(QWidget *parent);

    /// Comes up, ready for typing.
    void enter();
    QString text() const;
    /// What came of a search: "3 of 17".
    void showResult(const QString &text);

signals:
    void findAsked(bool forward);
    /// The text has been changed, so that what was found is no longer what is sought.
    void textChanged();
    /// Esc or the close button: the row has gone.
    void closed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QAction *addButton(const char *name, const QString &caption, const QString &tip, PageIcon icon);
    void leave();

    QLineEdit *m_text;
    QLabel *m_result;
};
