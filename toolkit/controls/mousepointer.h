#pragma once

#include <exception>

/// The screen's mouse pointer. Assignments, not counted: setting the hourglass twice and clearing it once clears it.
void setHourglass();
void setDefaultPointer();

/// Shows the hourglass until the routine that made it returns, by whatever way. A run-time error leaves it standing:
/// the program ends with the error box under the hourglass, as it always has.
class Hourglass
{
public:
    Hourglass() { setHourglass(); }
    ~Hourglass()
    {
        if (std::uncaught_exceptions() == m_errors)
            setDefaultPointer();
    }
    Hourglass(const Hourglass &) = delete;
    Hourglass &operator=(const Hourglass &) = delete;

private:
    int m_errors = std::uncaught_exceptions(); ///< under way already when it was made
};
