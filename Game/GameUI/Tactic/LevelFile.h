#pragma once

#include <functional>

#include "Engine/core/ResourceRef.h"
#include "Game/Types.h"

namespace Engine {
class iXML;
}
class cLevelGraph;

/// One level of "LevelMap.lvl", read and checked. It knows nothing of what is made out of it.
///
/// The level with number n is the n-th child of the root. It has a "Size" (map units) and four lists, each of which may
/// be missing: "Points" (attributes "Pos", "Opt"), "Arcs" ("p1", "p2", "Type" and, for fences and bridge roads of the
/// player's, a price), "Buildings" ("Type" and what that type reads) and "BackGround" ("Type").
///
/// What can't be is thrown as "LevelMap.lvl, level <n>, <element>: <what>", an arc end that is no point as "Wrong arc
/// index".
class cLevelFile {
public:
    static constexpr char path[] = "LevelMap.lvl";

    /// How many levels there are.
    static Int getLevelCount();
    static String getName(Int level);  ///< "LevelMap.lvl, level <n>"

    /// What the work throws is thrown on as "<place>: <what>".
    static void withPlace(const String& place, const std::function<void()>& work);

    /// Throws for a number that no level has.
    explicit cLevelFile(Int level);

    /// Points and arcs, in place of what there was; the graph still has to be built.
    void readGraph(cLevelGraph& graph, Vector2& size) const;
    /// Each building and its type, in the order of the file. What the visitor throws is told with the element's place.
    void forEachBuilding(const std::function<void(Int type, const Engine::iXML& tag)>& visit) const;
    void forEachBackground(const std::function<void(Int type, const Engine::iXML& tag)>& visit) const;

    /// Throws "point <i> is damaged" or "the arc <a> - <b> is damaged" unless every position is one that a map can
    /// have, and every arc has its twin.
    static void requireGraph(const cLevelGraph& graph);
    /// Throws "the size of the map is damaged" for one that no map has.
    static void requireSize(const Vector2& size);

private:
    void forEach(const char* list, const std::function<void(const Engine::iXML& tag)>& visit) const;
    void readPoints(cLevelGraph& graph) const;
    void readArcs(cLevelGraph& graph) const;

    Int m_level;
    Engine::cResourceRef m_document;
    Engine::iXML* m_tag = nullptr;  ///< of the document
};
