#pragma once

#include <memory>
#include <vector>

/// LEMON's Dijkstra, apart from the rest: its headers end with C++17.
class cLemonSearch {
public:
    struct sArc {
        int from;
        int to;
        float length;
    };

    cLemonSearch(int points, const std::vector<sArc>& arcs);
    ~cLemonSearch();
    float getLength(int src, int dst);  ///< a negative number if there is no way

private:
    struct sGraph;
    std::unique_ptr<sGraph> m_graph;
};
