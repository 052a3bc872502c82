#include "Game/GameUI/Tactic/LevelFile.h"

#include <cmath>

#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/iXML.h"
#include "Game/GameUI/Tactic/LevelGraph.h"

using namespace Engine;

namespace {

constexpr Float largest_coordinate = 100000.0f;  ///< map units
constexpr UInt most_points = 200000;

Bool isPlace(const Vector2& place) {
    return std::abs(place.x) <= largest_coordinate && std::abs(place.y) <= largest_coordinate;  // a NaN is not
}

iXML* getDocument() {
    return cResourceManager::getInstance()->getXML(cLevelFile::path);
}

}  // namespace

Int cLevelFile::getLevelCount() {
    iXML* document = getDocument();
    const cResourceRef holder = cResourceRef::adopt(document);
    return static_cast<Int>(document->getTagCount());
}

String cLevelFile::getName(Int level) {
    return String(path) + ", level " + std::to_string(level);
}

cLevelFile::cLevelFile(Int level) : m_level(level) {
    ENGINE_MARK;
    iXML* document = getDocument();
    m_document = cResourceRef::adopt(document);
    const auto count = static_cast<Int>(document->getTagCount());
    if (level < 0 || level >= count)
        throw String(getName(level) + ": there is none; the file has " + std::to_string(count) + " levels");
    document->get(static_cast<UInt>(level), m_tag);
}

void cLevelFile::forEach(const char* list, const std::function<void(const iXML& tag)>& visit) const {
    iXML* tags = nullptr;
    if (!m_tag->get(list, tags))
        return;
    for (UInt i = 0; i < tags->getTagCount(); ++i) {
        iXML* tag = nullptr;
        tags->get(i, tag);
        withPlace(getName(m_level) + ", " + list + " " + std::to_string(i), [&] { visit(*tag); });
    }
}

void cLevelFile::withPlace(const String& place, const std::function<void()>& work) {
    try {
        work();
    } catch (const std::string& failure) {
        throw String(place + ": " + failure);
    } catch (const char* failure) {
        throw String(place + ": " + failure);
    }
}

void cLevelFile::readGraph(cLevelGraph& graph, Vector2& size) const {
    ENGINE_MARK;
    graph.clear();
    size = {0.0f, 0.0f};
    readKey(*m_tag, u"Size", size);
    if (!isPlace(size))
        throw String(getName(m_level) + ": \"Size\" is no size of a map");
    readPoints(graph);
    readArcs(graph);
}

void cLevelFile::readPoints(cLevelGraph& graph) const {
    iXML* tags = nullptr;
    if (m_tag->get("Points", tags) && tags->getTagCount() > most_points)
        throw String(getName(m_level) + ": " + std::to_string(tags->getTagCount()) + " points are too many");
    POINTS& points = graph.getPoints();
    forEach("Points", [&](const iXML& tag) {
        sPointInfo& point = points.emplace_back();
        point.index = static_cast<Int>(points.size()) - 1;
        readKey(tag, u"Pos", point.pos);
        readKey(tag, u"Opt", point.options);
        if (!isPlace(point.pos))
            throw "\"Pos\" is no place on a map";
    });
}

void cLevelFile::readArcs(cLevelGraph& graph) const {
    forEach("Arcs", [&](const iXML& tag) {
        Int p1 = 0;
        Int p2 = 0;
        Int type = 0;
        readKey(tag, u"p1", p1);
        readKey(tag, u"p2", p2);
        readKey(tag, u"Type", type);
        if (!graph.hasPoint(p1) || !graph.hasPoint(p2))
            throw "Wrong arc index";
        if (p1 == p2)
            throw "an arc from a point to itself";
        if (type < 0 || type >= arc_type_count)
            throw String("no arc type ") + std::to_string(type);
        sResourceCargo cargo;
        if (hasArcPrice(type))
            cargo.loadXML(&tag);
        graph.addArc(p1, p2, type, cargo);
    });
}

void cLevelFile::forEachBuilding(const std::function<void(Int type, const iXML& tag)>& visit) const {
    ENGINE_MARK;
    forEach("Buildings", [&](const iXML& tag) {
        Int type = -1;
        readKey(tag, u"Type", type);
        visit(type, tag);
    });
}

void cLevelFile::forEachBackground(const std::function<void(Int type, const iXML& tag)>& visit) const {
    ENGINE_MARK;
    forEach("BackGround", [&](const iXML& tag) {
        Int type = -1;
        readKey(tag, u"Type", type);
        visit(type, tag);
    });
}

void cLevelFile::requireSize(const Vector2& size) {
    if (!isPlace(size))
        throw String("the size of the map is damaged");
}

namespace {

/// An arc is as long as the way between its ends.
Bool isLengthOf(const sArcInfo& arc, const sPointInfo& a, const sPointInfo& b) {
    const Float length = glm::distance(a.pos, b.pos);
    return std::abs(arc.length - length) <= 0.001f * length + 0.001f;
}

}  // namespace

void cLevelFile::requireGraph(const cLevelGraph& graph) {
    const POINTS& points = graph.getPoints();
    for (std::size_t i = 0; i < points.size(); ++i) {
        const sPointInfo& point = points[i];
        if (point.index != static_cast<Int>(i) || !isPlace(point.pos))
            throw String("point " + std::to_string(i) + " is damaged");
        for (const auto& [neighbour, arc] : point.arcs) {
            const Bool is_point = graph.hasPoint(neighbour) && neighbour != point.index;
            if (!is_point || graph.getPoint(neighbour).getArcType(point.index) != arc.type ||
                !isLengthOf(arc, point, graph.getPoint(neighbour)))
                throw String("the arc " + std::to_string(i) + " - " + std::to_string(neighbour) + " is damaged");
        }
    }
}
