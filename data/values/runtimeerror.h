#pragma once

#include <QString>
#include <QStringList>
#include <exception>

/// A run-time error of the system: the number and wording a user sees in the error box, and for the engineer
/// what was being done and what the engine underneath said. Nothing catches one but the application's event
/// dispatch, which shows the box and ends the process.
class RuntimeError : public std::exception
{
public:
    /// `description` is the full text of the box; `detail` (statement, engine's words) is never shown to users.
    RuntimeError(int number, QString description, QString detail = {});

    int number() const { return m_number; }
    const QString &description() const { return m_description; }
    const QString &detail() const { return m_detail; }
    const char *what() const noexcept override;

private:
    int m_number;
    QString m_description;
    QString m_detail;
    QByteArray m_what;
};

/// The error of that number with its standard wording; each "%1", "%2" of the wording takes one of `names`.
/// A number without a standard wording is a programming error.
RuntimeError runtimeError(int number, const QStringList &names = {}, const QString &detail = {});
