#pragma once

#include <QHash>
#include <QStringList>
#include <optional>

/// What stands behind a command: plain arguments in order, and options anywhere between them, written "--scale 10" or
/// "--scale=10", those without a value "--keep". A ToolError for an option that the command does not have; a file
/// whose name begins with a dash can still be given as ./-name. Not QCommandLineParser, which takes "-keep" for four
/// options and tells a wrong one in words of its own.
class Arguments
{
public:
    /// Options that take a value end in "=" in the list.
    Arguments(const QString &command, const QStringList &arguments, const QStringList &options);

    const QStringList &plain() const { return m_plain; }
    bool has(const QString &option) const { return m_options.contains(option); }
    /// The value of an option, which is the empty text if the line ends before it; nothing where it is not given.
    std::optional<QString> value(const QString &option) const;
    /// The same as a whole number within its range.
    std::optional<qulonglong> number(const QString &option, qulonglong least, qulonglong most) const;

private:
    QStringList m_plain;
    QHash<QString, QString> m_options;
};
