#include "reportengine/output/printserver.h"

#ifndef Q_OS_WIN
#include <QFile>
#include <cups/cups.h>

namespace {

constexpr int Patience = 30; ///< seconds for the server to answer

/// A list of destinations or options of the library, given back to it at the end.
struct Destinations
{
    ~Destinations() { cupsFreeDests(count, list); }
    int count = 0;
    cups_dest_t *list = nullptr;
};

class OptionList
{
public:
    ~OptionList() { cupsFreeOptions(m_count, m_list); }
    void add(const char *name, const char *value) { m_count = cupsAddOption(name, value, m_count, &m_list); }
    int count() const { return m_count; }
    cups_option_t *list() const { return m_list; }

private:
    int m_count = 0;
    cups_option_t *m_list = nullptr;
};

/// Whether somebody set this machine up to print, be it on a server elsewhere or on its own, which may stand still.
bool isSetUpToPrint()
{
    const bool serverIsKnown = qstrcmp(cupsServer(), "localhost") != 0;
    return serverIsKnown || QFile::exists(qEnvironmentVariable("CUPS_SERVERROOT", "/etc/cups") + "/printers.conf");
}

} // namespace

void PrintServer::Closer::operator()(_http_s *connection) const
{
    httpClose(connection);
}

PrintServer::PrintServer()
{
    // The library would ask for a password on the terminal, where nobody looks.
    cupsSetPasswordCB2(
        [](const char *, http_t *, const char *, const char *, void *) -> const char * { return nullptr; }, nullptr);
    m_connection.reset(
        httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1, Patience * 1000, nullptr));
    if (m_connection)
        // Answered with 0 the library gives up; by itself it would go on waiting for a server that fell silent.
        httpSetTimeout(
            m_connection.get(), Patience, [](http_t *, void *) { return 0; }, nullptr);
    else
        m_failure = QString::fromUtf8(cupsLastErrorString());
}

bool PrintServer::hasNoPrinterAtAll() const
{
    if (!m_connection)
        return !isSetUpToPrint();
    Destinations all;
    all.count = cupsGetDests2(m_connection.get(), &all.list);
    // "Not found" is how the server answers when it has no queue.
    const ipp_status_t status = cupsLastError();
    return all.count == 0 && (status <= IPP_STATUS_OK_EVENTS_COMPLETE || status == IPP_STATUS_ERROR_NOT_FOUND);
}

PrintServer::Job PrintServer::submit(const QString &queue, const QString &pdfPath, const QString &title, int copies,
                                     const Options &options) const
{
    if (!m_connection)
        return {.reason = m_failure};
    // A printer may come as one of its users' several settings: "Office/draft".
    const QByteArray name = queue.section('/', 0, 0).toUtf8();
    const QByteArray instance = queue.section('/', 1).toUtf8();
    Destinations found;
    found.list = cupsGetNamedDest(m_connection.get(), name.isEmpty() ? nullptr : name.constData(),
                                  instance.isEmpty() ? nullptr : instance.constData());
    if (!found.list)
        return {.reason = queue.isEmpty() ? "There is no default printer." : "The printer " + queue + " is gone."};
    found.count = 1;
    const cups_dest_t &destination = *found.list;

    // What the user or the administrator has set for the printer holds unless the job says otherwise.
    OptionList all;
    for (int i = 0; i < destination.num_options; ++i)
        all.add(destination.options[i].name, destination.options[i].value);
    for (const auto &[name, value] : options)
        all.add(name.constData(), value.constData());
    all.add("copies", QByteArray::number(copies).constData());

    Job job{.queue = QString::fromUtf8(destination.name)};
    job.id = cupsPrintFile2(m_connection.get(), destination.name, QFile::encodeName(pdfPath).constData(),
                            title.toUtf8().constData(), all.count(), all.list());
    if (job.id == 0)
        job.reason = QString::fromUtf8(cupsLastErrorString());
    // A printer that was stopped takes jobs all the same; the user is told that this one waits.
    const char *state = cupsGetOption("printer-state", destination.num_options, destination.options);
    job.waits = state && atoi(state) == IPP_PSTATE_STOPPED;
    return job;
}
#endif
