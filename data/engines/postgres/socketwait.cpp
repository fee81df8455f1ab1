#include "data/engines/postgres/socketwait.h"

#ifdef _WIN32
#include <winsock2.h>
#else
#include <poll.h>
#include <sys/socket.h>
#endif

int postgres::waitForSocket(PGconn *connection, int wanted, int milliseconds)
{
#ifdef _WIN32
    using Entry = WSAPOLLFD;
    const auto wait = WSAPoll;
#else
    using Entry = pollfd;
    const auto wait = poll;
#endif
    Entry socket = {};
    socket.fd = PQsocket(connection);
    socket.events = short((wanted & Input ? POLLIN : 0) | (wanted & Output ? POLLOUT : 0));
    if (wait(&socket, 1, milliseconds) <= 0)
        return 0;
    // Whatever else is told, an error or the end, is found out by reading.
    return (socket.revents & POLLOUT ? int(Output) : 0) | (socket.revents & ~POLLOUT ? int(Input) : 0);
}

void postgres::endSocket(PGconn *connection)
{
#ifdef _WIN32
    shutdown(PQsocket(connection), SD_BOTH);
#else
    shutdown(PQsocket(connection), SHUT_RDWR);
#endif
}
