// What is made of many small pictures: sprays, tails, the sparks around a control.
#include <gtest/gtest.h>

#include "Game/CommonUI/NewControlEffect.h"
#include "Game/CommonUI/SprinkleEffect.h"
#include "Game/CommonUI/TailEffect.h"
#include "Tests/Support/HeadlessProgram.h"

using namespace Engine;

namespace {

class Particles : public ::testing::Test {
protected:
    template <class T>
    T* make(const std::string& keys, const std::string& particle) {
        program.write("effect.xml", "<e position=\"100,100\" " + keys + "><Particle size=\"10,10\" " + particle +
                                        "/><ColorTable><i Color=\"FF00FF00\"/></ColorTable></e>");
        program.write("Effects/GlowEffect.xml", "<g/>");
        program.start();
        auto* effect = new T(nullptr, "effect.xml");
        effect->show();
        effect->enable();
        return effect;
    }

    cHeadlessProgram program;
};

class cNothing : public cParticleSystemMy<cWaterParticle> {
public:
    using cParticleSystemMy::cParticleSystemMy;

protected:
    cWaterParticle* generateParticle() override { return nullptr; }
};

}  // namespace

// A particle in two frames; each lives five.
TEST_F(Particles, aSprayIsGoneWithTheLastOfItsParticles) {
    auto* spray = make<cSprinkleEffect>("Frequency=\"25\" LiveTime=\"0.1,0.1\" RandAngle=\"0\"",
                                        "Speed=\"50,0\" Gravity=\"0,1000\" MaxScale=\"1\"");
    spray->start(3);
    program.frames(2);
    ASSERT_EQ(spray->getParticles().size(), 1u);
    const cWaterParticle* particle = spray->getParticles().front();
    program.frames(2);
    EXPECT_FLOAT_EQ(particle->getAlpha(), 1.0f);
    const Vector2 before = particle->getPosition();
    program.frame();
    EXPECT_FLOAT_EQ(particle->getPosition().x - before.x, 1.0f);
    EXPECT_GT(particle->getPosition().y, before.y);
    EXPECT_LT(particle->getAlpha(), 1.0f);
    EXPECT_GT(particle->getSize().x, 15.0f);
    program.frames(4);
    EXPECT_EQ(spray->getEmitted(), 3u);
    EXPECT_FALSE(spray->isEmitting());
    EXPECT_TRUE(cView::isValid(spray));
    program.frames(4);
    EXPECT_FALSE(cView::isValid(spray));
}

TEST_F(Particles, aSystemHasToSayWhenAParticleIsOver) {
    program.start();
    cNothing system(nullptr);
    EXPECT_THROW(system.process(), const char*);
}

TEST_F(Particles, aTailStaysBehindItsHead) {
    auto* tail = make<cTailEffect>(
        "Frequency=\"50\" LiveTime=\"0.2,0.2\" Radius=\"4\" Divergence=\"2\" "
        "GlowShowTime=\"0.04\" GlowSize=\"20\"",
        "");
    tail->activate(0.1f);
    program.frames(2);
    ASSERT_FALSE(tail->getParticles().empty());
    const cTailParticle* particle = tail->getParticles().front();
    const Vector2 way = particle->getPosition() - tail->getPosition();
    EXPECT_LE(glm::length(way), 4.5f);
    EXPECT_FLOAT_EQ(particle->getColor().g, 1.0f);
    EXPECT_FLOAT_EQ(particle->getColor().r, 0.0f);
    tail->moveHead({300, 100});
    EXPECT_LT(particle->getPosition().x, 110.0f);
    const Float size = particle->getSize().x;
    program.frame();
    EXPECT_NEAR(size - particle->getSize().x, 1.0f, 1e-3f);  // 10 units in 0.2 s
    program.frames(15);
    EXPECT_FALSE(cView::isValid(tail));
}

TEST_F(Particles, sparksFlyFromAllAroundAControlAndAreGone) {
    program.write("effect.xml",
                  "<e EmittersCount=\"10\" ParticlesCount=\"2\" Frequency=\"100\" SpeedModule=\"60\" "
                  "LiveTime=\"0.1,0.1\"><Particle/></e>");
    program.start();
    auto* effect = new cNewControlEffect(nullptr, {100, 200, 160, 240}, "effect.xml");
    Float way = 0.0f;
    for (std::size_t i = 0; i < effect->getPoints().size(); ++i) {
        const Vector2& point = effect->getPoints()[i];
        const Bool on_side = point.x == 100.0f || point.x == 160.0f;
        EXPECT_TRUE(on_side || point.y == 200.0f || point.y == 240.0f);
        const Vector2 step = glm::abs(effect->getPoints()[(i + 1) % 10] - point);
        EXPECT_NEAR(step.x + step.y, 20.0f, 1e-2f);  // a tenth of the border, round corners too
        way += step.x + step.y;
    }
    EXPECT_NEAR(way, 200.0f, 0.1f);
    program.frames(4);
    EXPECT_TRUE(cView::isValid(effect));
    program.frames(8);
    EXPECT_FALSE(cView::isValid(effect));
}

TEST_F(Particles, absurdNumbersAreRefusedOrLimited) {
    auto* spray = make<cSprinkleEffect>("EmittersCount=\"4000000000\" Frequency=\"1e30\"", "");
    EXPECT_GE(spray->getPeriod(), 1e-4f);
    EXPECT_THROW(new cNewControlEffect(nullptr, {0, 0, 1, 1}, "effect.xml"), String);
}
