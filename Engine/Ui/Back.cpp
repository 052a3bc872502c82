#include "Engine/Ui/Back.h"

#include "Engine/Ui/MultilineText.h"
#include "Engine/Ui/Picture.h"
#include "Engine/Ui/TextLine.h"
#include "Engine/core/CallStack.h"

namespace Engine {

void cBack::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cView::loadXML(xml);
    addControls<cPicture>(*xml, "Background");
    addControls<cTextLine>(*xml, "BackText");
    addControls<cMultilineText>(*xml, "BackMultitext");
}

}  // namespace Engine
