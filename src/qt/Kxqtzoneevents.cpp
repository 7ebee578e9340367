#include <kxgraph/qt/Kxqtzoneevents.h>

#include <kxgraph/platform/streaming/events.h>
#include <kxgraph/qt/Kxqtzone.h>

#include <cctype>
#include <charconv>
#include <string_view>

namespace kx::qt {

namespace {

constexpr std::string_view CPrefix = "Zone_";
constexpr int CHex = 16, CDigits = 2;

/// Europe/Berlin as Zone_Europe_2FBerlin: events are called like components.
std::string EventOf(const std::string& Zone) {
    std::string name(CPrefix);
    for (const char c : Zone) {
        const auto byte = static_cast<unsigned char>(c);
        if (std::isalnum(byte) && byte < 0x80) {
            name += c;
            continue;
        }
        constexpr char digits[] = "0123456789ABCDEF";
        ((name += '_') += digits[byte / CHex]) += digits[byte % CHex];
    }
    return name;
}

/// Empty for a name of another event.
std::string ZoneOf(std::string_view Name) {
    if (!Name.starts_with(CPrefix)) return {};
    std::string zone;
    for (std::size_t i = CPrefix.size(); i < Name.size(); ++i) {
        if (Name[i] != '_') {
            zone += Name[i];
            continue;
        }
        unsigned byte = 0;
        const char *first = Name.data() + i + 1, *end = Name.data() + Name.size();
        if (end - first < CDigits ||
            std::from_chars(first, first + CDigits, byte, CHex).ptr != first + CDigits)
            return {};
        zone += static_cast<char>(byte);
        i += CDigits;
    }
    return zone;
}

TEventValue Resolved(std::string_view Name) {
    const std::string zone = ZoneOf(Name);
    if (zone.empty()) return {};
    const auto offset = ZoneOffset(zone);
    return offset ? TEventValue(offset) : TEventValue();
}

} // namespace

void RegisterZone(const std::string& Zone) {
    if (const auto offset = ZoneOffset(Zone)) RegisterEvent(EventOf(Zone), offset);
}

void ResolveZones() { ResolveEvents(Resolved); }

} // namespace kx::qt
