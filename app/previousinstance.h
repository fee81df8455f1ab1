#pragma once

#include <QByteArray>
#include <QString>

/// Tells whether the program runs already, on this machine and from the same folder. The mark is a lock that the
/// system itself drops when the process ends, however it ends.
class PreviousInstance
{
public:
    /// Takes the mark for this process unless another one has it, and takes away those of programs whose folder is
    /// gone. The mark lies in the machine's own temporary folder, not beside the program, which may stand on a file
    /// server.
    explicit PreviousInstance(const QString &programFolder, const QString &markFolder = "/tmp");
    ~PreviousInstance();
    PreviousInstance(const PreviousInstance &) = delete;
    PreviousInstance &operator=(const PreviousInstance &) = delete;

    bool isRunning() const { return m_isRunning; }

private:
    bool m_isRunning = false;
    qintptr m_handle = -1;
    QByteArray m_path; ///< of the mark
};
