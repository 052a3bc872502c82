#include "Engine/core/XML.h"

#include <memory>

#include "Engine/core/CallStack.h"
#include "Engine/core/FileManager.h"
#include "Engine/core/FileText.h"
#include "Engine/core/XMLBinary.h"
#include "Engine/core/XMLParser.h"

namespace Engine {

namespace {

constexpr ULong large_file = 1024 * 1024;  // bytes
constexpr ULong largest_file = 256u * 1024 * 1024;

/// The plain string or String that is being handled; anything else goes on.
String takeFailureText() {
    try {
        throw;
    } catch (const std::string& text) {
        return text;
    } catch (const char* text) {
        return text;
    }
}

}  // namespace

cXML::cXML(const String& filename) : cXMLTag(toFileKey(filename)) {
    ENGINE_MARK;
    cFileManager& files = *cFileManager::getInstance();
    if (readFromFile(files.open(filename).get()))
        return;
    if (files.setDamagedAside(filename) && files.isExist(filename) && readFromFile(files.open(filename).get()))
        return;
    callStackText() = m_error + " filename: " + filename;
    throw String(callStackText());
}

cXML::cXML(iFile* file) : cXMLTag(sXMLNode{}) {
    ENGINE_MARK;
    if (!readFromFile(file))
        throw String(m_error);
}

Bool cXML::readFromFile(iFile* file) {
    ENGINE_MARK;
    setNode({});
    m_arena.clear();
    m_error.clear();
    try {
        parse(file);
        return true;
    } catch (...) {
        m_error = takeFailureText();
        m_arena.clear();
        return false;
    }
}

void cXML::parse(iFile* file) {
    const ULong size = file->getSize();
    if (size > largest_file)
        throw "the document is larger than 256 MB";
    if (size >= large_file)
        m_arena.reserve(std::size_t{size} * 2);  // most trees take between two and three times their text
    cXMLBuilder builder(m_arena);
    char first = 0;
    file->seek(0, iFile::from_start);
    file->read(&first, 1);
    file->seek(0, iFile::from_start);
    if (first == binary_xml_mark)
        readXMLBinary(*file, size, builder);
    else
        parseXMLText(*file, size, builder);
    sXMLNode root = builder.getRoot();
    root.name = nullptr;
    setNode(root);
}

void cXML::writeBinary(const String& filename) const {
    ENGINE_MARK;
    std::unique_ptr<iFile> file;
    try {
        file = cFileManager::getInstance()->create(filename, true);
    } catch (const std::string&) {
        return;
    }
    writeBinary(file.get(), true);
    file->close();
}

void cXML::writeBinary(iFile* file, Bool root) const {
    ENGINE_MARK;
    if (root)
        writeStringAsRaw(file, &binary_xml_mark, 1);
    writeXMLBinary(*file, *this);
}

}  // namespace Engine
