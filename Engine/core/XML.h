#pragma once

#include "Engine/core/XMLArena.h"
#include "Engine/core/XMLTag.h"

namespace Engine {

class iFile;

/// A document read from a file: its root tag, and the memory of all tags below.
///
/// A file that begins with ">" is in the binary form (XMLBinary.h), whatever its name; any other is text in UTF-8,
/// UTF-16 or another encoding that it declares. The tree takes three to four bytes for each of a text's; tags that were
/// handed out die with the document. Limits: 256 MB a file, 1000 levels of tags.
class cXML : public cXMLTag {
public:
    /// Reads the file behind this name of the file tree.
    ///
    /// A loose file of the writable directory that can't be read is damaged: its bytes are kept under the name with
    /// ".damaged" behind it, the file is deleted and what it hid, if anything, is read.
    /// Throws as cFileManager::open; for a file that is no document a String (also left in callStackText()): the
    /// reason, " filename: " and the name.
    explicit cXML(const String& filename);
    /// Reads a whole file. Throws the reason as a String if it is no document.
    explicit cXML(iFile* file);

    /// Replaces the tree by that of a whole file, from its start. False if the file is no document: the tree is then
    /// empty and getError() tells the reason.
    Bool readFromFile(iFile* file);
    /// Why the last readFromFile failed; for malformed text "<error> line <line> char <column>".
    const String& getError() const { return m_error; }

    /// The binary form. Nothing happens if the file can't be made; throws if it can't be written to its end.
    void writeBinary(const String& filename) const;
    /// @param root  begin with the byte that tells binary documents from others
    void writeBinary(iFile* file, Bool root) const;

private:
    void parse(iFile* file);

    cXMLArena m_arena;
    String m_error;
};

}  // namespace Engine
