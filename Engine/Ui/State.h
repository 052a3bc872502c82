#pragma once

#include "Engine/core/ResourceRef.h"
#include "Engine/core/Types.h"

namespace Engine {

class iXML;

/// How a control looks: a picture with its run of frames, or a mesh with its animation. Also stands alone as a value,
/// for the looks that an object changes between. Holds a reference on each of its resources.
class cState {
public:
    virtual ~cState() = default;
    cState() = default;
    cState(const cState&) = default;
    cState& operator=(const cState&) = default;

    /// Keys "Picture", "Mesh", "Animation" (file names; an empty one means none), "anim_length", "PlayAnimation",
    /// "frames_count", "anim_loop", "anim_columns", "anim_rows". A key that is absent changes nothing. The number of
    /// frames is cut to columns x rows.
    virtual void loadXML(const iXML* xml);
    virtual iResource* getTexture() const { return m_texture.get(); }
    virtual void setMesh(iResource* mesh);
    virtual void setAnimation(iResource* animation);

    void setTexture(iResource* texture) { m_texture = cResourceRef(texture); }
    iResource* getMesh() const { return m_mesh.get(); }
    iResource* getAnimation() const { return m_animation.get(); }
    UInt getFramesCount() const { return m_frames_count; }
    Float getAnimLength() const { return m_anim_length; }
    Bool isPlayAnimation() const { return m_play_animation; }
    void setPlayAnimation(Bool play) { m_play_animation = play; }

protected:
    cResourceRef m_texture;
    UInt m_frames_count = 1;
    Float m_anim_length = 1.0f;  ///< seconds for one run; above 0
    Bool m_anim_loop = true;
    UInt m_anim_columns = 1;
    UInt m_anim_rows = 1;
    Bool m_play_animation = false;
    cResourceRef m_animation;
    cResourceRef m_mesh;
};

}  // namespace Engine
