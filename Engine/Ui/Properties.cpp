#include "Engine/Ui/Properties.h"

#include <limits>
#include <tuple>

#include "Engine/core/FileText.h"
#include "Engine/core/TextConvert.h"

namespace Engine::Properties {

namespace {

/// One map with the name that its type has in the file.
template <class T>
struct sStore {
    const char* type_name;
    MAP<T> values;
};

using STORES =
    std::tuple<sStore<Float>, sStore<Double>, sStore<Int>, sStore<UInt>, sStore<Long>, sStore<ULong>, sStore<LongLong>,
               sStore<DXColor>, sStore<Bool>, sStore<std::uint16_t>, sStore<Vector2>, sStore<String>, sStore<WString>>;

STORES& stores() {
    static STORES all{{"Float", {}},   {"Double", {}},   {"Int", {}},     {"UInt", {}}, {"Long", {}},
                      {"ULong", {}},   {"LongLong", {}}, {"DXColor", {}}, {"Bool", {}}, {"UInt16", {}},
                      {"Vector2", {}}, {"String", {}},   {"WString", {}}};
    return all;
}

template <class F>
void forEachStore(F&& visit) {
    std::apply([&](auto&... store) { (visit(store), ...); }, stores());
}

Bool parse(const WString& text, std::uint16_t& value) {
    UInt number = 0;
    if (!parseText(text, number) || number > std::numeric_limits<std::uint16_t>::max())
        return false;
    value = static_cast<std::uint16_t>(number);
    return true;
}

/// An empty text is a value too.
template <class STRING>
requires std::is_same_v<STRING, String> || std::is_same_v<STRING, WString> Bool parse(const WString& text,
                                                                                      STRING& value) {
    value.clear();
    parseText(text, value);
    return true;
}

template <class T>
Bool parse(const WString& text, T& value) {
    return parseText(text, value);
}

/// The packed value in eight digits, so that its alpha is read again.
WString toText(const DXColor& value) {
    return WString(formatText(value).substr(2));
}

WString toText(std::uint16_t value) {
    return formatText(UInt{value});
}

template <class T>
WString toText(const T& value) {
    return formatText(value);
}

}  // namespace

MAP<Float>& getFloats() {
    return std::get<0>(stores()).values;
}
MAP<Double>& getDoubles() {
    return std::get<1>(stores()).values;
}
MAP<Int>& getInts() {
    return std::get<2>(stores()).values;
}
MAP<UInt>& getUInts() {
    return std::get<3>(stores()).values;
}
MAP<Long>& getLongs() {
    return std::get<4>(stores()).values;
}
MAP<ULong>& getULongs() {
    return std::get<5>(stores()).values;
}
MAP<LongLong>& getLongLongs() {
    return std::get<6>(stores()).values;
}
MAP<DXColor>& getColors() {
    return std::get<7>(stores()).values;
}
MAP<Bool>& getBools() {
    return std::get<8>(stores()).values;
}
MAP<std::uint16_t>& getUInt16s() {
    return std::get<9>(stores()).values;
}
MAP<Vector2>& getVector2s() {
    return std::get<10>(stores()).values;
}
MAP<String>& getStrings() {
    return std::get<11>(stores()).values;
}
MAP<WString>& getWStrings() {
    return std::get<12>(stores()).values;
}

void set(const String& type_name, const String& name, const WString& value) {
    forEachStore([&](auto& store) {
        if (type_name != store.type_name)
            return;
        typename decltype(store.values)::mapped_type parsed{};
        if (parse(value, parsed))
            store.values[name] = parsed;
    });
}

void clear() {
    forEachStore([](auto& store) { store.values.clear(); });
}

WString format() {
    WString text = u"<?xml version=\"1.0\" encoding=\"UTF-16\"?><Props>";
    forEachStore([&](const auto& store) {
        for (const auto& [name, value] : store.values) {
            text.append(u"<prop Name=\"").append(toXmlAttribute(toWide(name)));
            text.append(u"\" Val=\"").append(toXmlAttribute(toText(value)));
            text.append(u"\" Type=\"").append(toWide(store.type_name)).append(u"\" />");
        }
    });
    text += u"</Props>";
    return text;
}

}  // namespace Engine::Properties
