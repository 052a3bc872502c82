#include "Game/GameUI/Tactic/LevelBackgroundObject.h"

#include <cmath>
#include <numbers>

#include <glm/trigonometric.hpp>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Random.h"
#include "Engine/core/Timer.h"
#include "Engine/graphics/Graphics.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

namespace {

/// 0 to 1, both ends included.
Float draw() {
    return static_cast<Float>(Engine::random().next()) / 32767.0f;
}

Vector2 getScreenSize() {
    const cGraphics* graphics = cGraphics::getInstance();
    return {static_cast<Float>(graphics->getWidth()), static_cast<Float>(graphics->getHeight())};
}

/// Sets a view up from one of the children of a file, chosen by chance.
void loadOneOf(cPicture& view, const char* path, const char* failure) {
    iXML* document = cResourceManager::getInstance()->getXML(path);
    const cResourceRef holder = cResourceRef::adopt(document);
    const UInt count = document->getTagCount();
    if (count == 0)
        throw failure;
    const auto chosen =
        static_cast<UInt>(static_cast<Float>(count - 1) * static_cast<Float>(Engine::random().next()) * 3.0517578e-05f);
    iXML* tag = nullptr;
    document->get(chosen, tag);
    view.loadXML(tag);
}

/// Carries a cloud to its end, frame by frame.
class cCloudTask : public cTaskDealer::cTask {
public:
    explicit cCloudTask(cClouds& cloud) : cTask(&cloud), m_cloud(cloud) {}

    Bool onProcess() override {
        const Vector2 end = cTacticMap::getInstance()->toScreen(m_cloud.getTarget());
        const Vector2 way = end - m_cloud.getPosition();
        const Float length = glm::length(way);
        const Float step = m_cloud.getSpeed() * cTimer::getInstance()->getStep();
        if (step >= length) {
            m_cloud.setPosition(end);
            return true;
        }
        m_cloud.setPosition(m_cloud.getPosition() + way * (step / length));
        return false;
    }
    void onEnd() override {
        cTask::onEnd();
        m_cloud.end();
    }

private:
    cClouds& m_cloud;
};

}  // namespace

cLevelBackgroundObject::cLevelBackgroundObject(cView* parent) : cPicture(parent) {
    if (cTacticMap* map = cTacticMap::getInstance())
        map->registerControl(this);
}

cLevelBackgroundObject::cLevelBackgroundObject(const cPicture& prototype) : cPicture(prototype) {
    if (cTacticMap* map = cTacticMap::getInstance())
        map->registerControl(this);
}

cLevelBackgroundObject::~cLevelBackgroundObject() {
    if (cTacticMap* map = cTacticMap::getInstance())
        map->unRegisterControl(this);
}

// Clouds -------------------------------------------------------------------------------------------------------------

Vector2 chooseCloudsStart(Float destination) {
    const Vector2 size = getScreenSize();
    const Float u1 = draw() * 2.0f - 1.0f;
    const Float u2 = draw() * 2.0f - 1.0f;
    const Float place = draw();
    const Float sign = u2 < 0.0f ? -1.0f : 1.0f;
    const auto along = [&](Float length) { return place * (length + 2.0f * destination) - destination; };
    const auto outside = [&](Float length) { return (length * 0.5f + destination) * sign + length * 0.5f; };
    if (u1 < 0.0f)
        return {along(size.x), outside(size.y)};
    return {outside(size.x), along(size.y)};
}

cClouds::cClouds(cView* parent, const Vector2& start) : cLevelBackgroundObject(parent) {
    ENGINE_MARK;
    loadOneOf(*this, "Clouds/Clouds.xml", "Error load cloud");
    setPosition(start);
    m_target = getScreenSize() - start;
    show();
    enable();
    setTask(std::make_unique<cCloudTask>(*this));
}

void cClouds::loadXML(const iXML* xml) {
    cLevelBackgroundObject::loadXML(xml);
    readKey(*xml, u"Speed", m_speed);
}

void cClouds::process() {
    cLevelBackgroundObject::process();
    cTaskDealer::process();
}

void cClouds::end() {
    hide();
    disable();
    cTacticMap::getInstance()->removeScenery(this);
    discard(static_cast<cView*>(this), here());
}

// Birds --------------------------------------------------------------------------------------------------------------

cBird::cBird(cView* parent)
    : cLevelBackgroundObject(parent), m_screen_size(getScreenSize()), m_shadow(new cPicture(this)) {
    ENGINE_MARK;
    loadOneOf(*this, "GameUI/Birds.xml", "Error load bird");
    const Float side = draw() * 100.0f;
    const Float along = draw();
    Vector2 start;
    if (side < 25.0f)
        start = {along * m_screen_size.x, 0.0f};
    else if (side < 50.0f)
        start = {m_screen_size.x, along * m_screen_size.y};
    else if (side < 75.0f)
        start = {along * m_screen_size.x, m_screen_size.y};
    else
        start = {0.0f, along * m_screen_size.y};
    setPosition(glm::clamp(start, Vector2(0.0f), m_screen_size - 1.0f));  // the far bounds are outside
    const Vector2 way = m_screen_size * 0.5f - getPosition();
    m_direction = way / glm::length(way);
    show();
    enable();
}

void cBird::loadXML(const iXML* xml) {
    cLevelBackgroundObject::loadXML(xml);
    readKey(*xml, u"Speed", m_speed);
    readKey(*xml, u"change_dir_possibility", m_change_dir_possibility);
    readKey(*xml, u"rotate_angle", m_rotate_angle);
    readKey(*xml, u"shadow_offset", m_shadow_offset);
    loadChild(*m_shadow, xml, "Shadow");
}

Bool cBird::isInBounds() const {
    const Vector2& place = getPosition();
    return place.x >= 0.0f && place.y >= 0.0f && place.x < m_screen_size.x && place.y < m_screen_size.y;
}

void cBird::process() {
    cLevelBackgroundObject::process();
    const Float step = cTimer::getInstance()->getStep();
    if (!isInBounds())
        return destroyMe();
    fly(step);
    setAnimTime(getAnimTime() + step);
}

void cBird::fly(Float step) {
    setPosition(getPosition() + m_direction * (m_speed * step));
    // A picture's angle grows against the clock; the bird's head is at the left of its picture.
    setAngle(std::numbers::pi_v<Float> - std::atan2(m_direction.y, m_direction.x));
    m_shadow->setPosition(getPosition() + m_shadow_offset);
    m_shadow->setAngle(getAngle());
    m_shadow->setScale(getScale());
    m_shadow->setAnimTime(getAnimTime());
    const Float chance =
        static_cast<Float>(m_change_dir_possibility) * static_cast<Float>(Engine::random().next()) / 32768.0f;
    if (static_cast<Int>(chance) >= 1)
        return;
    const Float turn = glm::radians(draw() * m_rotate_angle);
    m_direction = {m_direction.x * std::cos(turn) - m_direction.y * std::sin(turn),
                   m_direction.x * std::sin(turn) + m_direction.y * std::cos(turn)};
}

void cBird::destroyMe() {
    hide();
    disable();
    cTacticMap::getInstance()->removeScenery(this);
    discard(static_cast<cView*>(this), here());
}
