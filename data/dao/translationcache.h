#pragma once

#include "data/jetsql/translator.h"
#include <QCache>
#include <memory>

/// A statement translated, and the constants to run it with.
struct BoundTranslation
{
    std::shared_ptr<const jetsql::Translation> translation;
    std::vector<Value> values; ///< for `sqlWithParameters`, in order

    const jetsql::Translation *operator->() const { return translation.get(); }
};

/// The translations made before. Programs here put every value into the text, so that statements come by the
/// thousand that differ in their constants alone: those share one translation, wherever it does not depend on them.
class TranslationCache
{
public:
    explicit TranslationCache(const jetsql::Dialect &dialect) : m_dialect(dialect) {}

    /// Translates a statement, or takes it from what is cached. Errors as jetsql::translate.
    BoundTranslation of(const QString &sql, const Catalog &catalog);
    /// To be called when the tables have changed.
    void clear() { m_byFingerprint.clear(); }

private:
    struct CachedTranslation;
    using Variants = std::vector<std::shared_ptr<const CachedTranslation>>;

    const jetsql::Dialect &m_dialect;
    /// Translations of one fingerprint, the newest last: they differ in a constant that is no parameter.
    QCache<QString, Variants> m_byFingerprint{256};
};
