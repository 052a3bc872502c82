#pragma once

#include "Game/Types.h"

/// Something that the net of either side may reach.
class cConnectable {
public:
    virtual ~cConnectable() = default;
    virtual Bool isPlayerConnected() const { return m_player_connected; }
    virtual Bool isEnemyConnected() const { return m_enemy_connected; }
    /// Asks the graph anew, after each connection map.
    virtual void updateConnections() {}

protected:
    void setConnections(Bool player, Bool enemy) {
        m_player_connected = player;
        m_enemy_connected = enemy;
    }

private:
    Bool m_player_connected = false;
    Bool m_enemy_connected = false;
};
