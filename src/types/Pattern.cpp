// Each thread keeps the patterns that it has compiled, since one pattern tests many values.

#include "Pattern.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/Text.h>

#include <array>
#include <map>
#include <memory>
#include <new>
#include <string>
#include <utility>

namespace ZqXmlLib9 {
namespace {

/// A pattern may try this many times before a value counts as no match; PCRE2's own number. It
/// takes a second or less.
constexpr std::uint32_t kMatchLimit = 10'000'000;

/// What a match may hold of the heap, in KiB. It grows with the groups of the pattern and the
/// length of the value: a repeated group takes some hundred thousand characters.
constexpr std::uint32_t kHeapLimit = 256 * 1024;

/// More than a schema has; a program with more compiles some again.
constexpr std::size_t kMaxKept = 256;

struct SReplacement {
    std::string_view found;
    std::string_view replacement;
};

/// In this order. The octet 1, which no document holds, keeps an escaped backslash apart. Character
/// classes are not looked at: `[\i]` becomes a bad expression.
constexpr std::array<SReplacement, 10> kTranslation{{
    {R"(\\)", "\x01"},
    {R"(\i)", R"(([^\W\d]|:))"},
    {R"(\I)", R"(([\W\d]))"},
    {R"(\c)", R"((\w|\.|-|:))"},
    {R"(\C)", R"(([^\w\.\-\:]))"},
    {R"(\p{IsBasicLatin})", R"([\000-\177])"},
    {R"(\p{IsLatin-1Supplement})", R"([\200-\377])"},
    {R"(\p{IsLatinExtended-A})", R"([\400-\577])"},
    {R"(\p{IsLatinExtended-B})", R"([\600-\1117])"},
    {"\x01", R"(\\)"},
}};

std::string Translate(std::string pattern)
{
    for (const auto& [found, replacement] : kTranslation) {
        std::string translated;
        std::size_t start = 0;
        for (std::size_t at; (at = pattern.find(found, start)) != std::string::npos;
             start = at + found.size())
            translated.append(pattern, start, at - start).append(replacement);
        pattern = translated.append(pattern, start);
    }
    return pattern;
}

struct SFree {
    void operator()(pcre2_code* code) const { pcre2_code_free(code); }
    void operator()(pcre2_match_data* data) const { pcre2_match_data_free(data); }
    void operator()(pcre2_match_context* context) const { pcre2_match_context_free(context); }
};

template <typename T>
using Owned = std::unique_ptr<T, SFree>;

/// Lack of memory says nothing about pattern or value.
void ThrowIfOutOfMemory(bool isOut)
{
    if (isOut)
        throw std::bad_alloc();
}

template <typename T>
Owned<T> Own(T* made)
{
    ThrowIfOutOfMemory(made == nullptr);
    return Owned<T>(made);
}

const PCRE2_UCHAR* ToUnits(const std::string& text)
{
    return reinterpret_cast<const PCRE2_UCHAR*>(text.data());
}

Owned<pcre2_code> Compile(const std::string& pattern)
{
    int error = 0;
    PCRE2_SIZE offset = 0;
    // Runs that are never given back wouldn't count as steps, however often they are tried.
    constexpr std::uint32_t kOptions = PCRE2_UTF | PCRE2_NO_AUTO_POSSESS;
    pcre2_code* const code =
        pcre2_compile(ToUnits(pattern), pattern.size(), kOptions, &error, &offset, nullptr);
    if (code == nullptr) {
        ThrowIfOutOfMemory(error == PCRE2_ERROR_HEAP_FAILED);
        std::array<PCRE2_UCHAR, 256> message{};
        pcre2_get_error_message(error, message.data(), message.size());
        throw CZqException(FormatString(u"Invalid Regular Expression: %hs Error: '%hs'", pattern,
                                        reinterpret_cast<const char*>(message.data())));
    }
    return Owned<pcre2_code>(code);
}

class CPattern {
public:
    explicit CPattern(std::u16string_view pattern)
        : m_code(Compile(Translate(ToUtf8(pattern)))),
          m_limits(Own(pcre2_match_context_create(nullptr)))
    {
        pcre2_set_match_limit(m_limits.get(), kMatchLimit);
        pcre2_set_heap_limit(m_limits.get(), kHeapLimit);
    }

    bool Matches(const std::string& value) const
    {
        // It isn't kept: it would keep the memory of the longest match too.
        const auto data = Own(pcre2_match_data_create_from_pattern(m_code.get(), nullptr));
        const int result = pcre2_match(m_code.get(), ToUnits(value), value.size(), 0,
                                       PCRE2_ANCHORED, data.get(), m_limits.get());
        ThrowIfOutOfMemory(result == PCRE2_ERROR_NOMEMORY);
        const PCRE2_SIZE* const match = pcre2_get_ovector_pointer(data.get());
        return result > 0 && match[0] == 0 && match[1] == value.size();
    }

private:
    Owned<pcre2_code> m_code;
    Owned<pcre2_match_context> m_limits;
};

/// Destructors of static objects may still test values when the store of their thread is gone.
thread_local bool t_isStoreGone = false;

struct SStore {
    std::map<std::u16string, CPattern, std::less<>> patterns;
    ~SStore() { t_isStoreGone = true; }
};

const CPattern& GetPattern(std::u16string_view pattern)
{
    thread_local SStore store;
    auto& kept = store.patterns;
    auto found = kept.find(pattern);
    if (found == kept.end()) {
        CPattern compiled(pattern);
        if (kept.size() == kMaxKept)
            kept.clear();
        found = kept.emplace(pattern, std::move(compiled)).first;
    }
    return found->second;
}

}  // namespace

bool MatchPattern(std::u16string_view pattern, std::u16string_view value)
{
    const std::string utf8 = ToUtf8(value);
    return t_isStoreGone ? CPattern(pattern).Matches(utf8) : GetPattern(pattern).Matches(utf8);
}

}  // namespace ZqXmlLib9
