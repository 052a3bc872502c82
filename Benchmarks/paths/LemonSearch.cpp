#include "Benchmarks/paths/LemonSearch.h"

#include <lemon/dijkstra.h>
#include <lemon/smart_graph.h>

struct cLemonSearch::sGraph {
    lemon::SmartDigraph graph;
    std::vector<lemon::SmartDigraph::Node> nodes;
    lemon::SmartDigraph::ArcMap<float> lengths{graph};
};

cLemonSearch::cLemonSearch(int points, const std::vector<sArc>& arcs) : m_graph(std::make_unique<sGraph>()) {
    for (int i = 0; i < points; ++i)
        m_graph->nodes.push_back(m_graph->graph.addNode());
    for (const sArc& arc : arcs) {
        const auto made = m_graph->graph.addArc(m_graph->nodes[static_cast<std::size_t>(arc.from)],
                                                m_graph->nodes[static_cast<std::size_t>(arc.to)]);
        m_graph->lengths[made] = arc.length;
    }
}

cLemonSearch::~cLemonSearch() = default;

float cLemonSearch::getLength(int src, int dst) {
    float length = -1.0f;
    const bool found =
        lemon::dijkstra(m_graph->graph, m_graph->lengths)
            .dist(length)
            .run(m_graph->nodes[static_cast<std::size_t>(src)], m_graph->nodes[static_cast<std::size_t>(dst)]);
    return found ? length : -1.0f;
}
