#include "Game/Ui/FixedBack.h"

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/OverlayButton.h"
#include "Engine/core/CallStack.h"
#include "Game/CommonUI/Cloud.h"
#include "Game/CommonUI/Greeter.h"

using namespace Engine;

cFixedBack::cFixedBack()
    : cBack(nullptr), m_sails(new cPicture(this)), m_mill(new cOverlayButton(this)), m_man(new cGreeter(this)) {
    ENGINE_MARK;
    m_mill->setOnClick(onMill);
    loadView(*this, "Ui/FixedBack.xml");
    setPlayful(false);
}

void cFixedBack::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cBack::loadXML(xml);
    iXML* clouds = nullptr;
    if (xml->get("Clouds", clouds)) {
        for (UInt i = 0; i < clouds->getTagCount(); ++i) {
            iXML* tag = nullptr;
            clouds->get(i, tag);
            (new cCloud(this))->loadXML(tag);
        }
    }
    loadChild(*m_sails, xml, "Sails");
    loadChild(*m_mill, xml, "Mill");
    loadChild(*m_man, xml, "Man");
}

void cFixedBack::setPlayful(Bool playful) {
    if (playful)
        m_mill->enable();
    else
        m_mill->disable();
}

void cFixedBack::onMill(cView*) {
    cPicture* sails = getInstance()->m_sails;
    sails->setPlayAnimation(!sails->isPlayAnimation());
}
