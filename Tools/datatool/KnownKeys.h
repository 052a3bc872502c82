#pragma once

#include <functional>
#include <vector>

#include "Engine/core/iXML.h"

/// Every key that a class of the game reads from its documents, and which document is read by which class.
///
/// The table stands at the head of KnownKeys.cpp; a class that learns a new key gets it there too.
namespace Datatool {

/// @param what  one sentence that names the element
using COMPLAINT = std::function<void(const Engine::String& what)>;

/// Tells of each attribute and child tag of a document that nothing reads, and which key it looks like.
///
/// A document that the table does not know is looked over for misspelt keys alone: those that are no key of any class
/// but one letter away from one.
/// @param name  of the file, as the game asks for it
void findUnknownKeys(const Engine::String& name, const Engine::iXML& document, const COMPLAINT& complain);

/// The documents that the game reads by name and can't do without.
std::vector<Engine::String> getNeededDocuments();

/// Is it a key of some class, or a child tag?
bool isKnownKey(const Engine::String& name);

}  // namespace Datatool
