#include "Documents.h"

#include <cstdint>
#include <string_view>

namespace Bench {
namespace {

/// SplitMix64, by Steele, Lea and Flood.
class CRandom {
public:
    std::uint32_t Below(std::uint32_t limit)
    {
        std::uint64_t z = m_state += 0x9E3779B97F4A7C15u;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return static_cast<std::uint32_t>((z ^ (z >> 31)) >> 32) % limit;
    }

    template <std::size_t n>
    std::string_view Pick(const std::string_view (&list)[n])
    {
        return list[Below(n)];
    }

private:
    std::uint64_t m_state = 2024;
};

constexpr std::string_view kNames[] = {
    "Smith &amp; Sons",      "Maria Fernandes", "Käthe Öhlmann",   "J. van den Berg",
    "Олена Коваленко",       "John Appleseed",  "加藤 花子",       "Rosa Martinez",
    "Peter Jones",           "Anna Kowalska",   "Ahmed Ben Salah", "Northern Tools Ltd.",
    "Miller &amp; Daughter", "Lucy Chen",       "Jürgen Groß",     "Thomas Baker"};
constexpr std::string_view kStreets[] = {"Main Street",  "Große Straße", "Quay Street",
                                         "Rue de l'Est", "Via Roma",     "High Road",
                                         "Park Avenue",  "Żurawia"};
constexpr std::string_view kCities[] = {"Galway", "Osnabrück", "Lyon",    "Springfield",
                                        "札幌市", "Bristol",   "Utrecht", "Porto"};
constexpr std::string_view kCountries[] = {"IE", "DE", "FR", "US", "JP", "GB", "NL", "PT"};
constexpr std::string_view kWords[] = {
    "brass",     "screw", "oak",     "table", "lamp",      "for",   "indoor", "use",
    "steel",     "hinge", "with",    "cover", "set",       "of",    "four",   "small",
    "&lt; 5 mm", "blue",  "Kühlung", "large", "“Prisma”",  "cable", "the",    "adapter",
    "garden",    "chair", "weather", "proof", "A &amp; B", "spare", "parts",  "naïve"};
constexpr std::string_view kTags[] = {"wholesale", "fragile", "gift",
                                      "express",   "größer",  "export"};
constexpr std::string_view kStatuses[] = {"new", "paid", "shipped", "cancelled"};

class COrderText {
public:
    void Add(std::uint32_t id)
    {
        m_text.append("\t<order id=\"").append(std::to_string(id));
        if (m_random.Below(8) != 0)
            m_text.append("\" status=\"").append(m_random.Pick(kStatuses));
        m_text += "\">\n";
        Put("orderDate", 2, Date() + "T" + Digits(24) + ":" + Digits(60) + ":" + Digits(60) + "Z");
        AddCustomer();
        for (std::uint32_t n = 1 + m_random.Below(5); n != 0; --n)
            AddItem();
        if (m_random.Below(3) == 0)
            Put("note", 2, Sentence(6 + m_random.Below(24)));
        for (std::uint32_t n = m_random.Below(4); n != 0; --n)
            Put("tag", 2, m_random.Pick(kTags));
        m_text += "\t</order>\n";
    }

    std::string m_text;

private:
    void Put(std::string_view name, std::size_t depth, std::string_view value)
    {
        m_text.append(depth, '\t').append("<").append(name).append(">").append(value);
        m_text.append("</").append(name).append(">\n");
    }

    void AddCustomer()
    {
        m_text += "\t\t<customer>\n";
        Put("name", 3, m_random.Pick(kNames));
        if (m_random.Below(4) != 0)
            Put("email", 3, "customer" + std::to_string(m_random.Below(100000)) + "@example.org");
        m_text += "\t\t\t<address>\n";
        Put("street", 4,
            std::to_string(1 + m_random.Below(200)).append(" ") += m_random.Pick(kStreets));
        Put("city", 4, m_random.Pick(kCities));
        Put("zip", 4, std::to_string(10000 + m_random.Below(90000)));
        Put("country", 4, m_random.Pick(kCountries));
        m_text += "\t\t\t</address>\n\t\t</customer>\n";
    }

    void AddItem()
    {
        m_text += "\t\t<item>\n";
        Put("sku", 3, "SKU-" + std::to_string(100000 + m_random.Below(900000)));
        Put("description", 3, Sentence(3 + m_random.Below(6)));
        Put("quantity", 3, std::to_string(1 + m_random.Below(500)));
        Put("price", 3, Price());
        if (m_random.Below(2) == 0)
            Put("weight", 3, std::to_string(m_random.Below(50)) + ".375");  // exact as a double
        if (m_random.Below(2) == 0)
            Put("shipDate", 3, Date());
        m_text += "\t\t</item>\n";
    }

    std::string Sentence(std::uint32_t words)
    {
        std::string text(m_random.Pick(kWords));
        while (--words != 0)
            text.append(" ").append(m_random.Pick(kWords));
        return text;
    }

    std::string Digits(std::uint32_t limit) { return TwoDigits(m_random.Below(limit)); }
    static std::string TwoDigits(std::uint32_t n)
    {
        return {static_cast<char>('0' + n / 10), static_cast<char>('0' + n % 10)};
    }

    std::string Date()
    {
        std::string date = std::to_string(2019 + m_random.Below(6));
        date.append("-").append(TwoDigits(1 + m_random.Below(12)));
        return date.append("-").append(TwoDigits(1 + m_random.Below(28)));
    }

    /// Two digits behind the point, of which the last is not 0.
    std::string Price()
    {
        return std::to_string(m_random.Below(1000)) + "."
               + TwoDigits(10 * m_random.Below(10) + 1 + m_random.Below(9));
    }

    CRandom m_random;
};

}  // namespace

std::string MakeOrders(std::size_t octets)
{
    COrderText orders;
    orders.m_text.reserve(octets + 4096);
    orders.m_text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<orders xmlns=\"urn:example:orders\">\n";
    for (std::uint32_t id = 1; orders.m_text.size() < octets; ++id)
        orders.Add(id);
    return orders.m_text += "</orders>\n";
}

std::size_t CountElements(const std::string& document)
{
    std::size_t count = 0;
    for (std::size_t i = 0; (i = document.find('<', i)) != std::string::npos; ++i)
        if (document[i + 1] != '/' && document[i + 1] != '?')
            ++count;
    return count;
}

}  // namespace Bench
