#include "Engine/Ui/Control.h"

#include <algorithm>
#include <cmath>
#include <glm/gtc/matrix_transform.hpp>
#include <limits>

#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Timer.h"
#include "Engine/graphics/Animation.h"
#include "Engine/graphics/Texture.h"
#include "Engine/graphics/iMesh.h"

namespace Engine {

namespace {

constexpr Float radians_per_degree = 0.017453292f;

/// Frame shown at this time of a run of the given length; a time before the run shows its first frame.
UInt frameAt(Float time, Float length, UInt frames) {
    if (time >= length)
        return frames - 1;
    const Float part = time / length;
    return part > 0.0f ? std::min(static_cast<UInt>(part * static_cast<Float>(frames)), frames - 1) : 0;
}

/// Reads an angle that the file gives in degrees.
void readDegrees(const iXML& xml, const char16_t* key, Float& radians) {
    Float degrees = 0.0f;
    if (readKey(xml, key, degrees))
        radians = degrees * radians_per_degree;
}

void forEachControl(cOrderedSet<ULongLong, cView>& children, auto&& visit) {
    children.walk([&](cView* child) {
        if (child->getViewKind() >= cView::control)
            visit(static_cast<cControl*>(child));
    });
}

}  // namespace

cControl::cControl(cView* parent) : cView(parent) {
}

cControl::cControl(const cControl& other) = default;

cControl::~cControl() = default;

void cControl::process() {
    if (m_solid.get().is_aniblend && m_solid.get().aniblend_rest > 0.0f) {
        sSolid& solid = m_solid.make();
        solid.aniblend_rest = std::max(solid.aniblend_rest - cTimer::getInstance()->getStep(), 0.0f);
        solid.unit.blend = solid.aniblend_rest / solid.anim_blend_time;
    }
    cView::process();
}

void cControl::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cView::loadXML(xml);

    Float deep = m_deep;
    readKey(*xml, u"deep", deep);
    setDeep(deep);
    readKey(*xml, u"position", m_position);
    readKey(*xml, u"size", m_size);
    readDegrees(*xml, u"angle", m_angle);
    readKey(*xml, u"color", m_color);
    readKey(*xml, u"alpha", m_color.a);
    readKey(*xml, u"RenderType", m_render_type);
    readKey(*xml, u"InverceX", m_inverce_x);
    readKey(*xml, u"InverceY", m_inverce_y);
    readKey(*xml, u"DoubleAnimRender", m_double_anim_render);
    readDegrees(*xml, u"pitch", m_pitch);
    readDegrees(*xml, u"yaw", m_yaw);
    readKey(*xml, u"scale", m_scale);
    loadSolid(*xml);
    cState::loadXML(xml);
    m_dirty = true;
}

void cControl::loadSolid(const iXML& xml) {
    sSolid solid = m_solid.get();
    const auto read = [&](const char16_t* key, auto& value) { return readKey(xml, key, value); };
    Bool found = read(u"LightingEnable", solid.lighting_enable);
    found |= read(u"LightTable", solid.light_table);
    found |= read(u"AmbientColor", solid.ambient_color);
    found |= read(u"SpecularColor", solid.specular_color);
    found |= read(u"EmissiveColor", solid.emissive_color);
    found |= read(u"Power", solid.power);
    found |= read(u"AnimBlendTime", solid.anim_blend_time);
    found |= read(u"IsAniblend", solid.is_aniblend);
    if (found)
        m_solid.make() = solid;
}

void cControl::showed() {
    enterDrawSet();
    m_dirty = true;  // show() has set the transparency
    cView::showed();
}

void cControl::hid() {
    leaveDrawSet();
    cView::hid();
}

void cControl::parentTransparenty() {
    m_dirty = true;
    cView::parentTransparenty();
}

void cControl::setMesh(iResource* mesh) {
    if (mesh != getMesh())
        endBlend();
    cState::setMesh(mesh);
    m_dirty = true;
}

void cControl::setAnimation(iResource* animation) {
    const Bool blends = animation && isAniblend() && getAnimBlendTime() > 0.0f && isShown();
    if (blends && getMesh() && getAnimation())
        keepPose();
    else
        endBlend();
    cState::setAnimation(animation);
    m_dirty = true;
}

/// The pose shown now is what the next animation is blended from.
void cControl::keepPose() {
    const std::vector<Matrix>* bind = static_cast<iMesh*>(getMesh())->getBoneMatrices();
    if (!bind)
        return endBlend();
    auto* animation = static_cast<cAnimation*>(getAnimation());
    animation->setTime(m_anim_time, bind);
    sSolid& solid = m_solid.make();
    solid.unit.saved_matrices = animation->getMatrices();
    solid.unit.blend = 1.0f;
    solid.aniblend_rest = solid.anim_blend_time;
}

void cControl::endBlend() {
    if (!m_solid.isMade())
        return;
    sSolid& solid = m_solid.make();
    solid.aniblend_rest = 0.0f;
    solid.unit.blend = 0.0f;
    solid.unit.saved_matrices.clear();
}

void cControl::setPosition(const Vector2& position) {
    const Vector2 delta = position - m_position;
    if (delta == Vector2(0.0f, 0.0f))
        return;
    forEachControl(getChildren(), [&](cControl* child) { child->setPosition(child->getPosition() + delta); });
    m_position = position;
    m_dirty = true;
}

void cControl::setDeep(const Float& deep) {
    const Float value = std::isnan(deep) ? 0.0f : deep;  // what has no order has no place in the drawing order
    const Float delta = value - m_deep;
    if (delta == 0.0f)
        return;
    forEachControl(getChildren(), [&](cControl* child) {
        if (!child->m_is_flat)
            child->setDeep(child->getDeep() + delta);
    });
    m_deep = value;
    m_draw_place.move({m_deep, getCreationNumber()});
    m_dirty = true;
}

// Animation --------------------------------------------------------------------------------------------------------

UInt cControl::getAnimFrame() const {
    return frameAt(m_anim_time, m_anim_length, m_frames_count);
}

void cControl::setAnimFrame(UInt frame) {
    if (getAnimFrame() == frame)
        return;
    const Float start = static_cast<Float>(frame) * m_anim_length / static_cast<Float>(m_frames_count);
    m_anim_time = std::clamp(start, 0.0f, m_anim_length);
    // Rounding may leave the time a hair before the frame that was asked for.
    while (m_anim_time < m_anim_length && getAnimFrame() < std::min(frame, m_frames_count - 1))
        m_anim_time = std::nextafter(m_anim_time, std::numeric_limits<Float>::max());
    m_dirty = true;
}

void cControl::wrapAnimTime() {
    const Float length = m_anim_length;
    if (m_anim_time >= length)
        m_anim_time = m_anim_loop ? m_anim_time - std::trunc(m_anim_time / length) * length : length;
    else if (m_anim_time < 0.0f)
        m_anim_time = m_anim_loop ? m_anim_time - (std::trunc(m_anim_time / length) - 1.0f) * length : 0.0f;
    if (!std::isfinite(m_anim_time))  // more runs than a Float counts
        m_anim_time = 0.0f;
}

void cControl::makeTransform() {
    if (!m_dirty)
        return;
    if (m_anim_time >= m_anim_length && !m_anim_loop)
        animationFinished();
    wrapAnimTime();
    if (getMesh())
        makeUnit(m_solid.make().unit);
    else if (m_double_anim_render)
        makeDoubleSprites();
    else
        makeSprite(m_sprite, getAnimFrame(), 1.0f);
    m_dirty = false;
}

void cControl::makeDoubleSprites() {
    const UInt frame = getAnimFrame();
    const Float frame_length = m_anim_length / static_cast<Float>(m_frames_count);
    const Float t = (m_anim_time - static_cast<Float>(frame) * frame_length) / frame_length;
    makeSprite(m_sprite, frame, std::min(1.0f, 2.0f * (1.0f - t)));

    const UInt next = m_anim_loop ? (frame + 1) % m_frames_count : std::min(frame + 1, m_frames_count - 1);
    makeSprite(m_second_sprite.make(), next, std::min(1.0f, 2.0f * t));
}

void cControl::makeSprite(iGraphics::sSprite& sprite, UInt frame, Float alpha) const {
    const Float du = 1.0f / static_cast<Float>(m_anim_columns);
    const Float dv = 1.0f / static_cast<Float>(m_anim_rows);
    const UInt column = frame % m_anim_columns;
    const UInt row = frame / m_anim_columns;
    const Float left = static_cast<Float>(column) * du;
    const Float top = static_cast<Float>(row) * dv;
    sprite.u0 = m_inverce_x ? left + du : left;
    sprite.u1 = m_inverce_x ? left : left + du;
    sprite.v0 = m_inverce_y ? top + dv : top;
    sprite.v1 = m_inverce_y ? top : top + dv;

    DXColor color = m_color;
    color.a *= getRoot()->getTransparency() * alpha;
    const UInt packed = toPackedColor(color);

    const Float cosine = m_angle == 0.0f ? 1.0f : std::cos(m_angle);  // few controls are turned
    const Float sine = m_angle == 0.0f ? 0.0f : std::sin(m_angle);
    const Vector2 half = m_size * Vector2(m_scale) * 0.5f;
    for (UInt i = 0; i < 4; ++i) {
        const Bool is_left = i % 2 == 0;
        const Float x = is_left ? -half.x : half.x;
        const Float y = (i < 2 ? -half.y : half.y) + (is_left ? -m_skew : m_skew) * 0.5f;
        sprite.corners[i].x = m_position.x + x * cosine + y * sine;
        sprite.corners[i].y = m_position.y - x * sine + y * cosine;
        sprite.corners[i].color = packed;
    }
}

void cControl::makeUnit(iGraphics::sUnit& unit) const {
    const sSolid& solid = m_solid.get();
    unit.mesh = static_cast<iMesh*>(getMesh());
    unit.animation = static_cast<cAnimation*>(getAnimation());
    unit.texture = static_cast<cTexture*>(getTexture());
    unit.time = m_anim_time;
    Matrix world = glm::translate(Matrix(1.0f), Vector3(m_position, 0.0f));
    world = glm::rotate(world, m_yaw, Vector3(0.0f, 1.0f, 0.0f));
    world = glm::rotate(world, m_pitch, Vector3(1.0f, 0.0f, 0.0f));
    world = glm::rotate(world, m_angle, Vector3(0.0f, 0.0f, 1.0f));
    unit.world = glm::scale(world, m_scale);
    unit.material = {m_color, solid.ambient_color, solid.specular_color, solid.emissive_color, solid.power};
    unit.material.diffuse.a *= getRoot()->getTransparency();
    unit.lighting = solid.lighting_enable;
    unit.light_table = solid.light_table;
}

const iGraphics::sUnit& cControl::getUnit() {
    makeTransform();
    return m_solid.get().unit;
}

const iGraphics::sSprite& cControl::getSprite() {
    makeTransform();
    return m_sprite;
}

// Hit test ---------------------------------------------------------------------------------------------------------

Vector2 cControl::toLocal(const Vector2& point) const {
    const Vector2 p = point - m_position;
    const Float cosine = std::cos(m_angle);
    const Float sine = std::sin(m_angle);
    return {p.x * cosine - p.y * sine, p.x * sine + p.y * cosine};
}

Bool cControl::isPointInside(const Vector2& point) const {
    const Vector2 local = toLocal(point);
    return std::abs(local.x) <= m_size.x * 0.5f && std::abs(local.y) <= m_size.y * 0.5f;
}

void cControl::runTasks() {
    for (std::size_t i = 0; i < m_tasks.size();) {
        if (m_tasks[i](this))
            m_tasks.erase(m_tasks.begin() + static_cast<std::ptrdiff_t>(i));
        else
            ++i;
    }
}

}  // namespace Engine
