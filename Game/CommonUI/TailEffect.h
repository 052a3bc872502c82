#pragma once

#include <vector>

#include "Game/CommonUI/ParticleSystemMy.h"

class cGlowEffect;

/// The tail of something that flies: coloured pieces that drift apart, and a glow at its head.
class cTailEffect : public cParticleSystemMy<cTailParticle> {
public:
    /// Sets itself up from a file, and its glow from "Effects/GlowEffect.xml" (cPicture).
    cTailEffect(Engine::cView* parent, const String& path);
    cTailEffect(const cTailEffect&) = delete;
    cTailEffect& operator=(const cTailEffect&) = delete;

    /// The keys of cPicture, then "Frequency" (particles a second), "LiveTime" (seconds, the shortest and the longest
    /// of a particle), "Radius" (units, of the disc that particles begin in), "Divergence" (a particle's speed by its
    /// distance from the middle, 1 / s), "GlowShowTime" (seconds), "GlowSize" (units), "Color" (of the particles, where
    /// there is no table), and the child tags "Particle" (cTailParticle) and "ColorTable", each child of which has a
    /// "Color".
    void loadXML(const Engine::iXML* xml) override;
    void process() override;

    /// Emits for so many seconds.
    void activate(Float _activation_time);
    /// Takes the head along and leaves what it has emitted behind.
    void moveHead(const Vector2& position) { moveAlone(position); }

protected:
    cTailParticle* generateParticle() override;

private:
    void loadColors(const Engine::iXML& xml);
    void addGlow();

    Vector2 m_live_time{1.0f, 1.0f};  ///< seconds, low and high
    Float m_radius = 0.0f;            ///< units
    Float m_divergence = 0.0f;        ///< 1 / s
    Float m_glow_show_time = 0.0f;    ///< seconds
    Float m_glow_size = 0.0f;         ///< units
    std::vector<DXColor> m_color_table;
    cTailParticle* m_prototype;  ///< a child of this view, never shown
    cGlowEffect* m_glow;         ///< a child of this view, never shown
};
