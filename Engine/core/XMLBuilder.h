#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "Engine/core/XMLArena.h"
#include "Engine/core/XMLTag.h"

namespace Engine {

/// Grows the tree of a document in its arena from what a reader meets on its way: a tag's start, its attributes, pieces
/// of its text and other tags in any mixture, its end.
///
///     openTag(name); addAttribute(name, value, size) ... endAttributes(); addText(...) ... closeTag();
///
/// Texts are given as raw units of 16 bits that need no alignment. Tags are laid out when their parent is closed, all
/// children of one parent in a row and in sorted order, so a child costs no pointer.
class cXMLBuilder {
public:
    static constexpr UInt deepest = 1000;  ///< levels of tags, the root's included

    explicit cXMLBuilder(cXMLArena& arena) : m_arena(arena) {}

    /// The one object of a name; a narrow one is its UTF-8 form.
    const sXMLName* intern(std::u16string_view name);
    const sXMLName* intern(std::string_view name);
    const sXMLName* intern(const char16_t* name);  ///< ends with a zero

    /// Throws "tags are nested deeper than 1000 levels".
    void openTag(const sXMLName* name);
    /// The value is copied in endAttributes(). Of two attributes of one name the later counts.
    void addAttribute(const sXMLName* name, const void* value, std::size_t size);
    /// Throws "attributes are too long" for a tag with more than 2^31 bytes of them.
    void endAttributes();
    /// Throws "text is too long" for more than 2^31 bytes in the open tags.
    void addText(const void* text, std::size_t size);
    void closeTag();

    UInt getDepth() const { return static_cast<UInt>(m_open.size()); }
    /// The finished root, once every tag is closed.
    const sXMLNode& getRoot() const { return m_nodes.front(); }

private:
    struct sOpenTag {
        sXMLNode node;
        std::size_t first_child;  ///< in m_nodes
        std::size_t text_start;   ///< in m_text
    };
    struct sNewAttribute {
        const sXMLName* name;
        const void* value;
        std::size_t size;  ///< units
    };

    const sXMLName* addName(std::u16string_view wide);
    void sortAttributes();
    void storeText(sXMLNode& node, const char* bytes, std::size_t count);
    cXMLTag* layOutChildren(std::size_t first);

    cXMLArena& m_arena;
    std::map<std::u16string_view, const sXMLName*> m_names;
    std::array<const sXMLName*, 256> m_recent_names{};    ///< in front of m_names, by a hash of the name
    std::array<const sXMLName*, 256> m_likely_names{};    ///< in front of both, by the first two units
    std::array<std::u16string_view, 64> m_short_texts{};  ///< by size, the last text of that many units
    std::vector<sNewAttribute> m_attributes;              ///< of the tag opened last
    std::vector<sOpenTag> m_open;
    std::vector<sXMLNode> m_nodes;  ///< closed tags that wait for their parent's end, those of one parent in a row
    std::string m_text;             ///< bytes of the open tags' texts so far, each behind its parent's
};

}  // namespace Engine
