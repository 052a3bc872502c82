#include "Game/GameUI/Strategic/StrategicRoll.h"

#include <algorithm>

#include <glm/geometric.hpp>

#include "Engine/Ui/Control.h"

void cStrategicRoll::add(Engine::cControl& picture, Bool is_fog) {
    m_pieces.push_back({&picture, is_fog, picture.getPosition(), picture.getSize()});
}

void cStrategicRoll::setEffectBegin(const Vector2& screen, Float time, const Vector2& place, Float scale,
                                    Float fog_factor) {
    constexpr Float least = 0.001f;     // nothing is divided by 0
    constexpr Float fog_speed = 0.85f;  // in parts of the growth of the land
    const Float t = std::max(time, least);
    const Float s = std::max(scale, least);
    const Vector2 middle = screen * 0.5f;
    m_map_speed = (middle - place) / s / t;
    m_size_speed = (screen - screen * s) / t / s;
    for (sPiece& piece : m_pieces) {
        if (piece.is_fog) {
            const Vector2 way = piece.position - place;
            const Float distance = glm::length(way);
            const Vector2 from_place = distance > least ? way / distance : Vector2(0.0f, -1.0f);
            piece.direction = from_place * (fog_speed * glm::length(m_size_speed));
            piece.growth = m_size_speed * fog_factor;
        } else {
            const Vector2 part = m_size_speed / screen;  // a picture that is no whole screen grows by its part of it
            piece.direction = m_map_speed + (piece.position - middle) * part;
            piece.growth = piece.size * part;
        }
    }
}

void cStrategicRoll::advance(Float dt) {
    for (const sPiece& piece : m_pieces) {
        piece.picture->setPosition(piece.picture->getPosition() + piece.direction * dt);
        piece.picture->setSize(piece.picture->getSize() + piece.growth * dt);
    }
}

void cStrategicRoll::restore() {
    for (const sPiece& piece : m_pieces) {
        piece.picture->setPosition(piece.position);
        piece.picture->setSize(piece.size);
    }
}
