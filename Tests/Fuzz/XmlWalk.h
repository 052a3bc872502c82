#pragma once

#include <cstdint>
#include <cstdlib>
#include <utility>
#include <vector>

#include "Engine/core/Keys.h"
#include "Engine/core/MemoryFile.h"
#include "Engine/core/XML.h"

namespace Engine {

inline void require(Bool holds) {
    if (!holds)
        std::abort();
}

/// Every typed getter of one tag, and that its parts are found again by name.
inline void readTag(const iXML& tag) {
    Bool flag = false;
    Int number = 0;
    UInt hex = 0;
    LongLong large = 0;
    Float real = 0.0f;
    Double precise = 0.0;
    Vector2 point(0.0f);
    Vector3 place(0.0f);
    DXColor color;
    WString wide;
    tag.getValue(flag), tag.getValue(number), tag.getValue(hex), tag.getValue(large), tag.getValue(real);
    tag.getValue(precise), tag.getValue(point), tag.getValue(color);
    parseText(tag.getWText(), place);
    require(tag.getText().size() <= 255);
    require(tag.getAttributes().size() == tag.getAttributeCount());
    for (UInt i = 0; i < tag.getAttributeCount(); ++i) {
        const WString name(tag.getAttribute(i).name);
        require(tag[name] == tag.getAttribute(i).value);
        require(i == 0 || tag.getAttribute(i - 1).name < tag.getAttribute(i).name);
        readKey(tag, name.c_str(), real);
    }
}

/// Both trees hold the same, and every tag of the first can be read.
inline void compareTags(const iXML& a, const iXML& b) {
    readTag(a);
    require(a.getWText() == b.getWText() && a.getAttributes() == b.getAttributes());
    require(a.getTagCount() == b.getTagCount());
    String last;
    for (UInt i = 0; i < a.getTagCount(); ++i) {
        iXML* a_child = nullptr;
        iXML* b_child = nullptr;
        String a_name;
        String b_name;
        require(a.get(i, a_child, &a_name) && b.get(i, b_child, &b_name));
        require(a_name == b_name && last <= a_name && a.getNodeCount(a_name) > 0);
        compareTags(*a_child, *b_child);
        last = a_name;
    }
}

/// Reads a document, walks through all of it, writes its binary form and finds the same in that.
inline void fuzzDocument(std::vector<char> bytes) {
    cMemoryFile file(std::move(bytes));
    try {
        const cXML document(&file);
        cMemoryFile binary;
        document.writeBinary(&binary, true);
        const cXML again(&binary);
        compareTags(document, again);
        cMemoryFile second;
        again.writeBinary(&second, true);
        require(binary.getBytes() == second.getBytes());
    } catch (const String& error) {
        require(!error.empty());
    }
}

}  // namespace Engine
