#include "data/dao/translationcache.h"

namespace {

/// Translations of one fingerprint that are kept. A routine that glues numbers into its SELECT list makes another one
/// at each run; the oldest goes.
constexpr size_t maxVariants = 16;

bool sameConstant(const jetsql::Token &a, const jetsql::Token &b)
{
    return a.number == b.number && a.text == b.text;
}

} // namespace

struct TranslationCache::CachedTranslation
{
    CachedTranslation(const QString &sql, const Catalog &catalog, const jetsql::Dialect &dialect,
                      std::vector<jetsql::Token> made)
        : translation(jetsql::translate(sql, catalog, dialect)), constants(std::move(made)),
          isParameter(constants.size())
    {
        for (const jetsql::BindParameter &parameter : translation.parameters)
            isParameter[size_t(parameter.constant)] = true;
    }

    /// Whether a statement of this fingerprint with those constants is translated to the same.
    bool fits(const std::vector<jetsql::Token> &others) const
    {
        for (size_t i = 0; i < constants.size(); ++i) {
            // A constant that is no parameter went into the text.
            if (!isParameter[i] && !sameConstant(constants[i], others[i]))
                return false;
        }
        return std::all_of(translation.parameters.begin(), translation.parameters.end(),
                           [&others](const jetsql::BindParameter &parameter) {
                               return parameter.fits(others[size_t(parameter.constant)]);
                           });
    }

    static BoundTranslation with(std::shared_ptr<const CachedTranslation> cached,
                                 const std::vector<jetsql::Token> &constants)
    {
        std::vector<Value> values;
        values.reserve(cached->translation.parameters.size());
        for (const jetsql::BindParameter &parameter : cached->translation.parameters)
            values.push_back(parameter.valueOf(constants[size_t(parameter.constant)]));
        const jetsql::Translation *translation = &cached->translation;
        return {{std::move(cached), translation}, std::move(values)};
    }

    jetsql::Translation translation;
    std::vector<jetsql::Token> constants; ///< of the statement it was made from
    std::vector<bool> isParameter;        ///< by constant: whether it has a parameter
};

BoundTranslation TranslationCache::of(const QString &sql, const Catalog &catalog)
{
    jetsql::Fingerprint fingerprint = jetsql::fingerprintOf(sql);
    Variants *list = fingerprint.key.isEmpty() ? nullptr : m_byFingerprint.object(fingerprint.key);
    if (list) {
        // The latest first: a routine mostly asks with constants that it had a moment ago.
        const auto fitting = std::find_if(list->rbegin(), list->rend(), [&fingerprint](const auto &cached) {
            return cached->fits(fingerprint.constants);
        });
        if (fitting != list->rend())
            return CachedTranslation::with(*fitting, fingerprint.constants);
    }
    auto made = std::make_shared<const CachedTranslation>(sql, catalog, m_dialect, fingerprint.constants);
    if (!fingerprint.key.isEmpty()) {
        if (!list)
            m_byFingerprint.insert(fingerprint.key, list = new Variants);
        if (list->size() == maxVariants)
            list->erase(list->begin());
        list->push_back(made);
    }
    return CachedTranslation::with(std::move(made), fingerprint.constants);
}
