#include "Tools/datatool/ResourceLog.h"

namespace Datatool {

using namespace Engine;

bool readResourceLog(const iXML& document, std::vector<sLogEntry>& entries) {
    entries.clear();
    for (UInt i = 0; i < document.getTagCount(); ++i) {
        iXML* tag = nullptr;
        String name;
        document.get(i, tag, &name);
        const ATTRIBUTE_MAP attributes = tag->getAttributes();
        if (name != "Tag" || !attributes.contains(u"Path") || !attributes.contains(u"Type"))
            return false;
        entries.push_back({toNarrow((*tag)[u"Path"]), toNarrow((*tag)[u"Type"])});
    }
    return !entries.empty();
}

}  // namespace Datatool
