#pragma once

#include <vector>

#include "Engine/Ui/State.h"
#include "Engine/Ui/View.h"
#include "Engine/Ui/ViewSets.h"
#include "Engine/graphics/iGraphics.h"

namespace Engine {

/// A view that is drawn: a place, a size, a turn, a colour, and a sprite made from its state.
///
/// Positions are logical units (800 x 600, y down) and mean the centre; angles are radians. The sprite is made again
/// only after something has changed (the setters compare first). Children keep their distance to the parent: they move
/// with setPosition() and setDeep().
class cControl : public cView, public cState {
public:
    using TASK = Bool (*)(cControl*);

    explicit cControl(cView* parent);
    /// The copy is drawn from its next show() on.
    cControl(const cControl& other);
    ~cControl() override;

    UInt getViewKind() const override { return control; }
    void process() override;
    /// The keys of cView, then "deep", "position", "size", "angle" (degrees), "color", "alpha", "RenderType",
    /// "InverceX", "InverceY", "DoubleAnimRender", "pitch", "yaw" (degrees), "scale", "LightingEnable", "LightTable",
    /// "AmbientColor", "SpecularColor", "EmissiveColor", "Power", "AnimBlendTime", "IsAniblend", then those of cState.
    void loadXML(const iXML* xml) override;
    void showed() override;
    void hid() override;
    void parentTransparenty() override;

    /// Another mesh ends a running blend of poses.
    void setMesh(iResource* mesh) override;
    /// With IsAniblend, while it is shown and had an animation before, the control glides from the old animation's pose
    /// into the new one's within AnimBlendTime. Otherwise a running blend ends.
    void setAnimation(iResource* animation) override;

    virtual Float getAngle() const { return m_angle; }
    virtual void setAngle(const Float& angle) { change(m_angle, angle); }
    virtual Float getAlpha() const { return m_color.a; }
    virtual void setAlpha(const Float& alpha) { change(m_color.a, alpha); }
    virtual const Vector2& getSize() const { return m_size; }
    virtual void setSize(const Vector2& size) { change(m_size, size); }
    virtual Float getAnimTime() const { return m_anim_time; }
    virtual void setAnimTime(const Float& time) { change(m_anim_time, time); }
    virtual Bool isInverceX() const { return m_inverce_x; }
    virtual void setInverceX(Bool inverce) { change(m_inverce_x, inverce); }
    virtual Bool isInverceY() const { return m_inverce_y; }
    virtual void setInverceY(Bool inverce) { change(m_inverce_y, inverce); }
    /// Blends each frame of the animation into the next: the control is drawn with two sprites.
    virtual Bool isDoubleAnimRender() const { return m_double_anim_render; }
    virtual void setDoubleAnimRender(Bool doubled) { change(m_double_anim_render, doubled); }
    virtual const DXColor& getColor() const { return m_color; }
    virtual void setColor(const DXColor& color) { change(m_color, color); }
    virtual const Vector3& getScale() const { return m_scale; }
    virtual void setScale(const Vector3& scale) { change(m_scale, scale); }
    virtual Float getYaw() const { return m_yaw; }
    virtual void setYaw(const Float& yaw) { change(m_yaw, yaw); }
    virtual Float getPitch() const { return m_pitch; }
    virtual void setPitch(const Float& pitch) { change(m_pitch, pitch); }
    virtual Bool isLightingEnable() const { return m_lighting_enable; }
    virtual void setLightingEnable(Bool lighting) { change(m_lighting_enable, lighting); }
    virtual UInt getLightTable() const { return m_light_table; }
    virtual void setLightTable(UInt table) { change(m_light_table, table); }
    virtual const DXColor& getAmbientColor() const { return m_ambient_color; }
    virtual void setAmbientColor(const DXColor& color) { change(m_ambient_color, color); }
    virtual const DXColor& getSpecularColor() const { return m_specular_color; }
    virtual void setSpecularColor(const DXColor& color) { change(m_specular_color, color); }
    virtual const DXColor& getEmissiveColor() const { return m_emissive_color; }
    virtual void setEmissiveColor(const DXColor& color) { change(m_emissive_color, color); }
    virtual Float getPower() const { return m_power; }
    virtual void setPower(const Float& power) { change(m_power, power); }
    virtual Bool isAniblend() const { return m_is_aniblend; }
    virtual void setIsAniblend(Bool aniblend) { m_is_aniblend = aniblend; }
    virtual Float getAniblendRest() const { return m_aniblend_rest; }
    virtual void setAniblendRest(const Float& rest) { m_aniblend_rest = rest; }
    virtual Float getAnimBlendTime() const { return m_anim_blend_time; }
    virtual void setAnimBlendTime(const Float& time) { m_anim_blend_time = time; }
    virtual const Vector2& getPosition() const { return m_position; }
    virtual void setPosition(const Vector2& position);
    virtual UInt getRenderType() const { return m_render_type; }
    virtual void setRenderType(UInt type) { m_render_type = type; }
    virtual UInt getAnimFrame() const;
    virtual void setAnimFrame(UInt frame);
    virtual Float getDeep() const { return m_deep; }
    virtual void setDeep(const Float& deep);
    /// In logical units; the border belongs to the control.
    virtual Bool isPointInside(const Vector2& point) const;
    /// An animation that does not loop is at its end.
    virtual void animationFinished() {}
    /// Fills in everything but the pose that is blended from.
    ///
    /// A mesh stands with its origin at the control's position, at z 0, one of its units being one logical unit times
    /// scale (the control's size is the area of its hit test alone). It is turned in this order: by angle about its own
    /// upright axis, by pitch about the screen's x axis, by yaw about the screen's y axis. At pitch 0 it is seen from
    /// straight above, its front at the lower side of the screen; at 90 degrees it stands upright on the screen, seen
    /// from the front. A growing angle turns it clockwise as seen from above, so that it looks along (cos, sin) of
    /// angle + 90 degrees on the ground. The map's view has a pitch of 50 degrees.
    ///
    /// The surface's diffuse colour is the control's, its alpha multiplied with the transparency of the root.
    virtual void makeUnit(iGraphics::sUnit& unit) const;
    virtual void makeTransform();
    /// @param alpha  multiplied into the control's alpha and the transparency of its root
    virtual void makeSprite(iGraphics::sSprite& sprite, UInt frame, Float alpha) const;

    const iGraphics::sSprite& getSprite();  ///< brought up to date
    /// The sprite of the next frame of the animation, as made with the last getSprite().
    const iGraphics::sSprite& getSecondSprite() const { return m_second_sprite; }

    const iGraphics::sUnit& getUnit();  ///< brought up to date; of a control that has a mesh

    /// Adds a function that cPicture::process() calls each frame until it gives true.
    void addTask(TASK task) { m_tasks.push_back(task); }
    void setDirty() { m_dirty = true; }

protected:
    void runTasks();

    template <class T>
    void change(T& member, const T& value) {
        if (member == value)
            return;
        member = value;
        m_dirty = true;
    }

    /// A point relative to the control's centre, turned back by its angle.
    Vector2 toLocal(const Vector2& point) const;

private:
    sDrawKey getDrawKey() const;
    void wrapAnimTime();
    void makeDoubleSprites();
    void keepPose();
    void endBlend();

    Float m_angle = 0.0f;
    Vector2 m_position{0.0f, 0.0f};
    Vector2 m_size{1.0f, 1.0f};
    UInt m_render_type = 0;
    iGraphics::sSprite m_sprite;
    iGraphics::sSprite m_second_sprite;
    iGraphics::sUnit m_unit;
    Float m_anim_time = 0.0f;  ///< seconds
    Bool m_dirty = true;
    std::vector<TASK> m_tasks;
    Bool m_inverce_x = false;
    Bool m_inverce_y = false;
    Bool m_double_anim_render = false;
    Vector3 m_scale{1.0f, 1.0f, 1.0f};
    Float m_yaw = 0.0f;
    Float m_pitch = 0.0f;
    Bool m_lighting_enable = false;
    UInt m_light_table = 0;
    DXColor m_ambient_color{1, 1, 1, 1};
    DXColor m_specular_color{1, 1, 1, 1};
    DXColor m_emissive_color{1, 1, 1, 1};
    Float m_power = 7.0f;
    DXColor m_color{1, 1, 1, 1};
    Float m_aniblend_rest = 0.0f;     ///< seconds that the running blend of two poses still lasts
    Float m_anim_blend_time = 0.15f;  ///< seconds
    Bool m_is_aniblend = false;
    Float m_deep = 0.0f;
};

}  // namespace Engine
