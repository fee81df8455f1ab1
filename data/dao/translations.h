#pragma once

#include "data/engine/lrucache.h"
#include "data/jetsql/translator.h"
#include <memory>

/// A statement translated, and the constants to run it with.
struct Translated
{
    std::shared_ptr<const jetsql::Translation> translation;
    std::vector<Value> values; ///< for `sqlWithPlaces`, in order

    const jetsql::Translation *operator->() const { return translation.get(); }
};

/// The translations made before. Programs here put every value into the text, so that statements come by the
/// thousand that differ in their constants alone: those share one translation, wherever it does not depend on them.
class Translations
{
public:
    explicit Translations(const jetsql::Dialect &dialect) : m_dialect(dialect) {}

    /// Translates a statement, or takes it from what is known. Errors as jetsql::translate.
    Translated of(const QString &sql, const Catalog &catalog);
    /// To be called when the tables have changed.
    void clear() { m_byShape.clear(); }

private:
    struct Known;
    using KnownList = std::vector<std::shared_ptr<const Known>>;

    const jetsql::Dialect &m_dialect;
    /// Translations of one shape, the newest last: they differ in a constant that has no place.
    LruCache<QString, KnownList> m_byShape{256};
};
