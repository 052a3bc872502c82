#include "Game/GameLogic/Angles.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

constexpr Float pi = std::numbers::pi_v<Float>;

TEST(Angles, takeTheShortTurn) {
    EXPECT_NEAR(angleDifference(3.0f, -3.0f), 2.0f * pi - 6.0f, 1e-5f);
    EXPECT_NEAR(angleDifference(-3.0f, 3.0f), 6.0f - 2.0f * pi, 1e-5f);
    EXPECT_NEAR(angleDifference(0.5f, 0.5f + 20.0f * pi), 0.0f, 1e-4f);
    EXPECT_EQ(angleDifference(0.0f, INFINITY), 0.0f);
}

TEST(Angles, ofAVectorAreThoseOfTheArcTangent) {
    for (const Vector2& v : {Vector2(1, 0), Vector2(0, 2), Vector2(-3, 0), Vector2(0, -1), Vector2(1, 2),
                             Vector2(-5, 1), Vector2(-1, -1), Vector2(2, -7)})
        EXPECT_NEAR(angleOf(v), std::atan2(v.y, v.x), 1e-5f) << v.x << ", " << v.y;
}

TEST(Angles, onTheGroundAreSteeperThanOnTheTiltedMap) {
    EXPECT_FLOAT_EQ(projectedYaw(10.0f, 10.0f, 0.0f), pi / 4.0f);
    EXPECT_FLOAT_EQ(projectedYaw(10.0f, 5.0f, pi / 2.0f), pi / 4.0f);
}
