#pragma once

#include "bench/bare/engine.h"

namespace Bare {

/// The running ledger of stock. Twin of UpdateAvailInv.
class Ledger
{
public:
    explicit Ledger(BareEngine &engine);
    /// Adds to the row of a warehouse and part, or makes it.
    void post(const QByteArray &warehouse, const QByteArray &part, double quantity);

private:
    BareEngine::Statement m_find, m_update, m_insert;
};

} // namespace Bare
