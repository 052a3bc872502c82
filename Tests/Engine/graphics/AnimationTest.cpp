#include "Engine/graphics/Animation.h"

#include <gtest/gtest.h>

#include <glm/gtc/matrix_transform.hpp>
#include <numbers>

#include "Tests/Support/UnitFiles.h"

namespace Engine {
namespace {

using UnitFiles::no_parent;
using UnitFiles::sBone;

cAnimation read(const std::string& bytes) {
    return {"some.anim", reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()};
}

cAnimation make(Float length, const std::vector<sBone>& bones) {
    return read(UnitFiles::makeAnimation(length, bones));
}

String failureOf(const std::string& bytes) {
    try {
        read(bytes);
    } catch (const char* text) {
        return text;
    }
    return {};
}

Matrix shift(Float x, Float y = 0.0f) {
    return glm::translate(Matrix(1.0f), Vector3(x, y, 0.0f));
}

Matrix turn(Float degrees) {
    return glm::rotate(Matrix(1.0f), glm::radians(degrees), Vector3(0.0f, 0.0f, 1.0f));
}

/// Where the pose takes the point.
Vector3 moved(const cAnimation& animation, UInt bone, Vector3 point) {
    return animation.getMatrices()[bone] * glm::vec4(point, 1.0f);
}

void expectNear(Vector3 a, Vector3 b) {
    EXPECT_NEAR(glm::distance(a, b), 0.0f, 1e-5f) << a.x << ' ' << a.y << ' ' << a.z;
}

const std::vector<Matrix> at_origin(2, Matrix(1.0f));

TEST(Animation, mixesTheKeysAroundTheTime) {
    cAnimation animation = make(2.0f, {{no_parent, {{shift(0), 0.0f}, {shift(10), 1.0f}, {shift(0), 2.0f}}}});
    for (const auto& [time, x] : {std::pair(0.0f, 0.0f),
                                  {0.25f, 2.5f},
                                  {1.0f, 10.0f},
                                  {1.5f, 5.0f},
                                  {2.0f, 0.0f},
                                  {2.25f, 2.5f},
                                  {6.25f, 2.5f}}) {
        animation.setTime(time, &at_origin);
        expectNear(moved(animation, 0, {0, 1, 0}), {x, 1, 0});
    }
}

// Half way between 0 and 90 degrees the mixed rows have a length of 0.7; the bone must not shrink.
TEST(Animation, keepsTheLengthsOfTurnedRows) {
    cAnimation animation = make(1.0f, {{no_parent, {{turn(0), 0.0f}, {turn(90), 1.0f}}}});
    animation.setTime(0.5f, &at_origin);
    expectNear(moved(animation, 0, {1, 0, 0}), Vector3(1, 1, 0) / std::numbers::sqrt2_v<Float>);

    const Matrix twice = glm::scale(Matrix(1.0f), Vector3(2.0f, 0.0f, 1.0f));
    cAnimation growing = make(1.0f, {{no_parent, {{Matrix(1.0f), 0.0f}, {twice, 1.0f}}}});
    growing.setTime(0.5f, &at_origin);
    expectNear(moved(growing, 0, {1, 1, 1}), {1.5f, 0.5f, 1.0f});
    cAnimation flat = make(1.0f, {{no_parent, {{Matrix(0.0f), 0.0f}, {Matrix(0.0f), 1.0f}}}});
    flat.setTime(0.5f, &at_origin);
    EXPECT_EQ(flat.getMatrices()[0], Matrix(0.0f));
}

// The second bone sits 10 right of the first, which is turned by 90 degrees; the child comes first in the file.
TEST(Animation, hangsBonesOnTheirParentsInAnyOrder) {
    const sBone child{1, {{shift(10), 0.0f}, {shift(10), 1.0f}}};
    const sBone parent{no_parent, {{shift(0, 5) * turn(90), 0.0f}, {shift(0, 5) * turn(90), 1.0f}}};
    cAnimation animation = make(1.0f, {child, parent});
    animation.setTime(0.5f, &at_origin);
    expectNear(moved(animation, 0, {1, 0, 0}), {0, 16, 0});

    // In the mesh the child lies at (10, 0): only its way from there counts.
    const std::vector<Matrix> bind{shift(10), Matrix(1.0f)};
    animation.setTime(0.5f, &bind);
    expectNear(moved(animation, 0, {10, 0, 0}), {0, 15, 0});
}

TEST(Animation, leavesABoneInItsParentWithoutAKeyOnEitherSide) {
    cAnimation animation = make(4.0f, {{no_parent, {{shift(3), 1.0f}, {shift(5), 2.0f}}}, {0, {}}});
    for (const Float time : {0.5f, 2.0f, 3.0f}) {
        animation.setTime(time, &at_origin);
        EXPECT_EQ(animation.getMatrices()[0], Matrix(1.0f)) << time;
    }
    animation.setTime(1.5f, &at_origin);
    expectNear(moved(animation, 1, {0, 0, 0}), {4, 0, 0});
}

TEST(Animation, needsABindPose) {
    cAnimation animation = make(1.0f, {{no_parent, {{shift(3), 0.0f}, {shift(3), 1.0f}}}});
    animation.setTime(0.5f, nullptr);
    EXPECT_EQ(animation.getMatrices()[0], Matrix(1.0f));
    animation.setTime(0.5f, &at_origin);
    EXPECT_EQ(animation.getMatrices()[0], shift(3));
}

TEST(Animation, saysWhatIsWrongInAFile) {
    const std::vector<UnitFiles::sKey> keys{{Matrix(1.0f), 0.0f}, {Matrix(1.0f), 1.0f}};
    const std::string whole = UnitFiles::makeAnimation(1.0f, {{no_parent, keys}, {0, keys}});
    EXPECT_EQ(failureOf(whole), "");
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_EQ(failureOf(whole.substr(0, size)), "Unexpected end of source") << size;

    std::string many_keys = whole;
    std::memset(&many_keys[12], 0xFF, 4);
    EXPECT_EQ(failureOf(many_keys), "Unexpected end of source");
    const std::string wrong[] = {
        "qors" + whole.substr(4),
        whole.substr(0, whole.size() - 1) + "x",
        UnitFiles::makeAnimation(0.0f, {}),
        UnitFiles::makeAnimation(-1.0f, {}),
        UnitFiles::makeAnimation(1.0f, {{1, {}}}),                    // no such parent
        UnitFiles::makeAnimation(1.0f, {{1, {}}, {2, {}}, {1, {}}}),  // a loop behind a straight piece
        UnitFiles::makeAnimation(1.0f, std::vector<sBone>(257)),
        UnitFiles::makeAnimation(1.0f, {{no_parent, {{Matrix(INFINITY), 0.0f}}}}),
    };
    for (const std::string& bytes : wrong)
        EXPECT_EQ(failureOf(bytes), "Invalid resource format") << &bytes - wrong;
}

}  // namespace
}  // namespace Engine
