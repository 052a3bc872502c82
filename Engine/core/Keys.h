#pragma once

#include "Engine/core/String.h"
#include "Engine/core/TextConvert.h"
#include "Engine/core/Types.h"

namespace Engine {

class iXML;

/// The text behind a key of a tag: the attribute of that name if the tag has one, else the text of the first child
/// called so. False, and text untouched, if there is neither.
Bool findKey(const iXML& xml, const char16_t* name, WString& text);

/// Reads one key of a tag into a value of any type that parseText knows. Gives whether the key exists; a text that
/// doesn't parse leaves the value, which is thus the default, as it is.
template <class T>
Bool readKey(const iXML& xml, const char16_t* name, T& value) {
    WString text;
    if (!findKey(xml, name, text))
        return false;
    parseText(text, value);
    return true;
}

}  // namespace Engine
