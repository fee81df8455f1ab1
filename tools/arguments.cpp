#include "tools/arguments.h"

#include "tools/toolerror.h"

Arguments::Arguments(const QString &command, const QStringList &arguments, const QStringList &options)
{
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString &argument = arguments[i];
        if (!argument.startsWith(u'-')) {
            m_plain += argument;
            continue;
        }
        const QString option = argument.section(u'=', 0, 0);
        const bool given = argument.contains(u'=');
        if (options.contains(option + u'='))
            m_options.insert(option, given ? argument.section(u'=', 1) : arguments.value(++i));
        else if (options.contains(option) && !given)
            m_options.insert(option, {});
        else
            throw ToolError{QString("%1 has no option '%2'").arg(command, argument)};
    }
}

std::optional<QString> Arguments::value(const QString &option) const
{
    const auto found = m_options.find(option);
    return found == m_options.end() ? std::nullopt : std::optional(*found);
}

std::optional<qulonglong> Arguments::number(const QString &option, qulonglong least, qulonglong most) const
{
    const std::optional<QString> text = value(option);
    if (!text)
        return {};
    bool ok = false;
    const qulonglong number = text->toULongLong(&ok);
    if (!ok || number < least || number > most)
        throw ToolError{
            QString("%1 takes a whole number from %2 to %3, not '%4'").arg(option).arg(least).arg(most).arg(*text)};
    return number;
}
