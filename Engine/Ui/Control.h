#pragma once

#include <vector>

#include "Engine/Ui/RarePart.h"
#include "Engine/Ui/State.h"
#include "Engine/Ui/View.h"
#include "Engine/Ui/ViewSets.h"
#include "Engine/graphics/iGraphics.h"

namespace Engine {

/// A view that is drawn: a place, a size, a turn, a colour, and a sprite made from its state.
///
/// Positions are logical units (800 x 600, y down) and mean the centre; angles are radians. The sprite is made again
/// only after something has changed (the setters compare first). Children keep their distance to the parent: they move
/// with setPosition() and, unless they are flat, setDeep().
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
    Float getSkew() const { return m_skew; }
    /// How far the picture's right side lies below its left one, units: it leans along a slope, and stays upright.
    void setSkew(Float skew) { change(m_skew, skew); }
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
    virtual Bool isLightingEnable() const { return m_solid.get().lighting_enable; }
    virtual void setLightingEnable(Bool lighting) { changeSolid(&sSolid::lighting_enable, lighting); }
    virtual UInt getLightTable() const { return m_solid.get().light_table; }
    virtual void setLightTable(UInt table) { changeSolid(&sSolid::light_table, table); }
    virtual const DXColor& getAmbientColor() const { return m_solid.get().ambient_color; }
    virtual void setAmbientColor(const DXColor& color) { changeSolid(&sSolid::ambient_color, color); }
    virtual const DXColor& getSpecularColor() const { return m_solid.get().specular_color; }
    virtual void setSpecularColor(const DXColor& color) { changeSolid(&sSolid::specular_color, color); }
    virtual const DXColor& getEmissiveColor() const { return m_solid.get().emissive_color; }
    virtual void setEmissiveColor(const DXColor& color) { changeSolid(&sSolid::emissive_color, color); }
    virtual Float getPower() const { return m_solid.get().power; }
    virtual void setPower(const Float& power) { changeSolid(&sSolid::power, power); }
    virtual Bool isAniblend() const { return m_solid.get().is_aniblend; }
    virtual void setIsAniblend(Bool aniblend) { m_solid.make().is_aniblend = aniblend; }
    virtual Float getAniblendRest() const { return m_solid.get().aniblend_rest; }
    virtual void setAniblendRest(const Float& rest) { m_solid.make().aniblend_rest = rest; }
    virtual Float getAnimBlendTime() const { return m_solid.get().anim_blend_time; }
    virtual void setAnimBlendTime(const Float& time) { m_solid.make().anim_blend_time = time; }
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
    const iGraphics::sSprite& getSecondSprite() const { return m_second_sprite.get(); }

    const iGraphics::sUnit& getUnit();  ///< brought up to date; of a control that has a mesh

    /// Adds a function that cPicture::process() calls each frame until it gives true.
    void addTask(TASK task) { m_tasks.push_back(task); }
    void setDirty() { m_dirty = true; }
    /// Lets the control lie where it is when its parent's deep changes: a shadow, say.
    void setFlat(Bool flat) { m_is_flat = flat; }
    /// Nothing of it is drawn at present, though it is shown and keeps its place in the drawing order.
    Bool isBlank() const { return m_blank; }
    void setBlank(Bool blank) { m_blank = blank; }
    void leaveDrawSet() { m_draw_place.leave(); }  ///< not drawn until it is shown again

protected:
    /// setPosition() for a control that never has children.
    void moveAlone(const Vector2& position) { change(m_position, position); }
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
    /// What only a control with a mesh needs.
    struct sSolid {
        iGraphics::sUnit unit;
        Bool lighting_enable = false;
        UInt light_table = 0;
        DXColor ambient_color{1, 1, 1, 1};
        DXColor specular_color{1, 1, 1, 1};
        DXColor emissive_color{1, 1, 1, 1};
        Float power = 7.0f;
        Bool is_aniblend = false;
        Float aniblend_rest = 0.0f;     ///< seconds that the running blend of two poses still lasts
        Float anim_blend_time = 0.15f;  ///< seconds
    };

    template <class T>
    void changeSolid(T sSolid::*member, const T& value) {
        if (m_solid.get().*member != value)
            change(m_solid.make().*member, value);
    }
    void enterDrawSet() { m_draw_place.enter({m_deep, getCreationNumber()}, this); }
    void loadSolid(const iXML& xml);
    void wrapAnimTime();
    void makeDoubleSprites();
    void keepPose();
    void endBlend();

    // What a frame and a line of text ask of thousands of controls lies together, in front of what a letter adds.
    cRarePart<sSolid> m_solid;
    cRarePart<iGraphics::sSprite> m_second_sprite;
    std::vector<TASK> m_tasks;
    Float m_yaw = 0.0f;
    Float m_pitch = 0.0f;
    Float m_anim_time = 0.0f;  ///< seconds
    UInt m_render_type = 0;
    iGraphics::sSprite m_sprite;
    Float m_angle = 0.0f;
    Float m_skew = 0.0f;  ///< units
    Vector3 m_scale{1.0f, 1.0f, 1.0f};
    cDrawPlace m_draw_place;
    Float m_deep = 0.0f;
    Vector2 m_position{0.0f, 0.0f};
    Vector2 m_size{1.0f, 1.0f};
    DXColor m_color{1, 1, 1, 1};
    Bool m_inverce_x = false;
    Bool m_inverce_y = false;
    Bool m_double_anim_render = false;
    Bool m_dirty = true;
    Bool m_blank = false;
    Bool m_is_flat = false;  ///< its deep stays when its parent's changes
};

}  // namespace Engine
