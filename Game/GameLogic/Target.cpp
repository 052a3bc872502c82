#include "Game/GameLogic/Target.h"

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Picture.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Game/GameLogic/LevelObject.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/Ui/GameSounds.h"

using namespace Engine;

namespace {

constexpr char definition_file[] = "GameLogic/Target.xml";

}  // namespace

void aTarget::loadTargetXML(const iXML* xml) {
    readKey(*xml, u"attack_icon_offset", m_icon_offset);
}

void aTarget::getTargetPosition(Vector2& out, const Vector2&, Float, Bool local) const {
    getPosition(out, local);
}

void aTarget::damage() {
    takeHit();
}

void aTarget::takeHit() {
    ENGINE_MARK;
    showTarget(false);
    playGameSound("destroy");
    cTacticMap::getInstance()->targetDamaged(this);
}

Bool aTarget::inDamageArea(const Vector2& center, Float radius) const {
    Vector2 position;
    getPosition(position, false);
    return glm::distance(position, center) <= radius;
}

void aTarget::destroyMe() {
    leaveSight();
}

void aTarget::leaveSight() {
    m_bullet = nullptr;
    cTacticMap::getInstance()->targetDamaged(this);
}

void aTarget::updateView(Bool hide) {
    if (!hide)
        return;
    showAttack(false);
    showTarget(false);
}

void aTarget::showSign(cControl*& sign, const char* tag, const Vector2& position, Bool show) {
    if (!show) {
        if (sign)
            sign->hide();
        return;
    }
    if (!sign) {
        iXML* xml = cResourceManager::getInstance()->getXML(definition_file);
        const cResourceRef holder = cResourceRef::adopt(xml);
        sign = new cPicture(&m_owner);
        loadChild(*sign, xml, tag);
    }
    sign->setPosition(position);
    sign->show();
}

void aTarget::showTarget(Bool show) {
    Vector2 position;
    getPosition(position, true);
    showSign(m_target_button, "TargetButton", position, show);
}

void aTarget::showTarget(const Vector2& center, Float radius, Bool show) {
    Vector2 position;
    getTargetPosition(position, center, radius, true);
    showSign(m_target_button, "TargetButton", position, show);
}

void aTarget::showAttack(Bool show) {
    Vector2 position;
    getPosition(position, true);
    showSign(m_attack_icon, "AttackIcon", position + m_icon_offset, show);
}

Bool aTarget::isTargetButtonAt(const Vector2& point) const {
    return m_target_button && m_target_button->isShow() && m_target_button->isPointInside(point);
}
