// What moves by itself: clouds, greeters, what pulses.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Picture.h"
#include "Game/CommonUI/Cloud.h"
#include "Game/CommonUI/Greeter.h"
#include "Game/CommonUI/ScaleOscillator.h"
#include "Tests/Support/HeadlessProgram.h"

using namespace Engine;

namespace {

class Motion : public ::testing::Test {
protected:
    template <class T>
    T* make(const std::string& keys) {
        program.write("view.xml", "<v Visible=\"1\" Enable=\"1\" " + keys + "/>");
        program.start();
        auto* view = new T(nullptr);
        loadView(*view, "view.xml");
        return view;
    }

    cHeadlessProgram program;
};

}  // namespace

TEST_F(Motion, aCloudComesBackOnTheOtherSide) {
    auto* cloud = make<cCloud>("position=\"845,50\" size=\"100,40\" Speed=\"100\"");
    program.frames(2);
    EXPECT_GT(cloud->getPosition().x, 847.0f);
    program.frames(3);
    EXPECT_LT(cloud->getPosition().x, -40.0f);
}

// He waves for a second after each second or two of standing about.
TEST_F(Motion, aManGreetsNowAndThen) {
    for (const char* name : {"man_idle.anim", "man_wave.anim"}) {
        std::ifstream file(std::string(BRINDLE_SOURCE_DIR "/Data/Men/") + name, std::ios::binary);
        program.write(name, std::string(std::istreambuf_iterator<char>(file), {}));
    }
    auto* man = make<cGreeter>(
        "Animation=\"man_idle.anim\" GreetAnimation=\"man_wave.anim\" GreetLength=\"1\" PauseMin=\"1\" "
        "PauseMax=\"2\"");
    UInt greeting_frames = 0;
    UInt changes = 0;
    for (UInt i = 0; i < 1000; ++i) {
        const iResource* before = man->getAnimation();
        program.frame();
        greeting_frames += man->getAnimation()->getName() == "man_wave.anim" ? 1 : 0;
        changes += man->getAnimation() != before ? 1 : 0;
    }
    EXPECT_GE(changes, 2 * 20 / 3 - 1);
    EXPECT_LE(changes, 2 * 20 / 2);
    EXPECT_NEAR(greeting_frames, changes / 2.0 * 51, 60);
}

TEST_F(Motion, pulsesForItsTimeAndEndsAtItsSize) {
    auto* picture = make<cScaleOscillator<cPicture>>(
        "position=\"100,100\" size=\"40,40\" osc_scale_min_value=\"0.9\" osc_scale_max_value=\"1.1\" "
        "osc_scale_period=\"0.4\" osc_scale_time=\"1\"");
    picture->setOscillating(true);
    program.frames(5);  // a quarter of a swing
    EXPECT_NEAR(picture->getScale().x, 1.2f, 1e-4f);
    EXPECT_NEAR(picture->getSprite().corners[0].x, 100.0f - 20.0f * 1.2f, 1e-3f);
    program.frames(60);
    EXPECT_FALSE(picture->isOscillating());
    EXPECT_EQ(picture->getScale(), Vector3(1.0f, 1.0f, 1.0f));
}
