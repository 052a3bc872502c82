#pragma once

#include <vector>

#include "Engine/Ui/Control.h"
#include "Engine/core/iXML.h"

namespace Engine {

/// A panel: pictures and texts that its file lists, kept as children in that order.
class cBack : public cView {
public:
    using cView::cView;

    /// The keys of cView, then the child tags "Background" (each of its children makes a cPicture), "BackText" (a
    /// cTextLine each) and "BackMultitext" (a cMultilineText each).
    void loadXML(const iXML* xml) override;

protected:
    /// One control for each child of the tag of that name, if there is one.
    template <class T>
    void addControls(const iXML& xml, const char* name) {
        iXML* list = nullptr;
        if (!xml.get(name, list))
            return;
        for (UInt i = 0; i < list->getTagCount(); ++i) {
            iXML* tag = nullptr;
            list->get(i, tag);
            m_back.push_back(new T(this));
            m_back.back()->loadXML(tag);
        }
    }

    const std::vector<cControl*>& getBackground() const { return m_back; }  ///< all of it, pictures and texts

private:
    std::vector<cControl*> m_back;  ///< children
};

}  // namespace Engine
