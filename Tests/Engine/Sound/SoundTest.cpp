// What is heard is measured: the real mixer plays into the test's memory.

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "Engine/Sound/Channel.h"
#include "Engine/Sound/SoundManager.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/ResourceRef.h"
#include "Engine/core/Settings.h"
#include "Engine/platform/sdl/OpenAlDevice.h"
#include "Tests/Support/HeadlessProgram.h"
#include "Tests/Support/TestWave.h"

namespace Engine {

namespace {

constexpr double pitch = 441.0;  // Hz; a tenth of a second holds whole waves

/// What came out in a tenth of a second.
struct sHeard {
    double left = 0.0;   ///< amplitude of the pitch
    double right = 0.0;  ///< the same
    double rest = 0.0;   ///< the loudest of everything else, left
};

class Sound : public ::testing::Test {
protected:
    Sound() {
        program.write("mono.wav", TestWave::makeSine(pitch, 0.5));
        program.write("stereo.wav", TestWave::makeSine(pitch, 0.5, 0.5, 2));
        program.write("noise.ogg", "OggS this is not a sound");
    }

    void start() {
        auto made = std::make_unique<Platform::cOpenAlDevice>();
        device = made.get();
        program.getPlatform().setSoundDevice(std::move(made));
        program.start();
        manager = cSoundManager::getInstance();
        ASSERT_NE(manager, nullptr);
        ASSERT_FALSE(manager->isDisabled());
    }

    cResourceRef load(const String& name) {
        return cResourceRef::adopt(cResourceManager::getInstance()->getSound(name));
    }

    /// Passes over the mixer's ramps, then listens.
    sHeard hear() {
        constexpr Int frames = 4410;
        std::vector<Float> mix(frames * 2);
        device->render(mix.data(), frames);
        device->render(mix.data(), frames);
        const auto measure = [&](int channel) {
            double sine = 0.0;
            double cosine = 0.0;
            for (int i = 0; i < frames; ++i) {
                const double angle = 2.0 * std::numbers::pi * pitch * i / 44100.0;
                sine += mix[static_cast<std::size_t>(i * 2 + channel)] * std::sin(angle);
                cosine += mix[static_cast<std::size_t>(i * 2 + channel)] * std::cos(angle);
            }
            return std::pair(2.0 * sine / frames, 2.0 * cosine / frames);
        };
        const auto [sine, cosine] = measure(0);
        const auto [right_sine, right_cosine] = measure(1);
        sHeard heard{std::hypot(sine, cosine), std::hypot(right_sine, right_cosine), 0.0};
        for (int i = 0; i < frames; ++i) {
            const double angle = 2.0 * std::numbers::pi * pitch * i / 44100.0;
            const double wave = sine * std::sin(angle) + cosine * std::cos(angle);
            heard.rest = std::max(heard.rest, std::abs(mix[static_cast<std::size_t>(i * 2)] - wave));
        }
        return heard;
    }

    cHeadlessProgram program;
    Platform::cOpenAlDevice* device = nullptr;
    cSoundManager* manager = nullptr;
};

}  // namespace

TEST_F(Sound, playsTheSampleAtTheLevelOfItsGroup) {
    start();
    const cResourceRef stereo = load("stereo.wav");
    auto channel = manager->playSound(stereo.get(), true, true);
    const sHeard full = hear();
    EXPECT_NEAR(full.left, 0.5, 0.01);
    EXPECT_NEAR(full.right, 0.5, 0.01);
    EXPECT_LT(full.rest, 0.01);

    manager->setSoundVolume(25);  // half as loud
    EXPECT_NEAR(hear().left, 0.25, 0.01);
    EXPECT_EQ(channel->getVolume(), 100);
    channel->setVolume(50);
    EXPECT_NEAR(hear().left, 0.125, 0.01);
    manager->setMusicVolume(0);  // another group
    EXPECT_NEAR(hear().left, 0.125, 0.01);
    manager->setSoundVolume(0);
    EXPECT_LT(hear().left, 0.001);
    manager->setSoundVolume(100);
    EXPECT_NEAR(hear().left, 0.25, 0.01);

    auto second = manager->playMusic(stereo.get(), true, true);
    EXPECT_NEAR(hear().left, 0.25, 0.01);  // silent from its beginning
    manager->setMusicVolume(100);
    channel.reset();
    EXPECT_NEAR(hear().left, 0.5, 0.01);
}

TEST_F(Sound, movesOneChannelFromLeftToRight) {
    start();
    auto channel = manager->playSound(load("mono.wav").get(), true, true);
    const sHeard middle = hear();
    EXPECT_NEAR(middle.left, middle.right, 0.01);
    EXPECT_GT(middle.left, 0.2);
    channel->setPan(0);
    const sHeard left = hear();
    EXPECT_GT(left.left, middle.left);
    EXPECT_LT(left.right, left.left * 0.35);
    EXPECT_EQ(channel->getPan(), 0);
}

TEST_F(Sound, endsLoopsAndPauses) {
    start();
    const cResourceRef mono = load("mono.wav");
    auto once = manager->playSound(mono.get(), false, true);
    EXPECT_EQ(once->getLength(), 500);
    EXPECT_TRUE(once->isPlaying());
    hear();
    EXPECT_NEAR(once->getPosition(), 200, 30);
    once->pause();
    EXPECT_TRUE(once->isPaused());
    EXPECT_LT(hear().left, 0.001);
    once->play();
    once->setPosition(400);
    hear();
    EXPECT_FALSE(once->isPlaying());
    EXPECT_LT(hear().left, 0.001);
    once->play();  // from the beginning
    EXPECT_GT(hear().left, 0.2);

    auto waiting = manager->playSound(mono.get(), true, false);
    EXPECT_TRUE(waiting->isPaused());
    once.reset();
    EXPECT_LT(hear().left, 0.001);
    waiting->play();
    for (int i = 0; i < 10; ++i)
        EXPECT_GT(hear().left, 0.2);  // two seconds of half a second

    program.getPlatform().setForeground(false);
    program.frame();
    EXPECT_LT(hear().left, 0.001);
    const Int place = waiting->getPosition();
    program.getPlatform().setForeground(true);
    program.frame();
    EXPECT_EQ(waiting->getPosition(), place);
    EXPECT_GT(hear().left, 0.2);
}

TEST_F(Sound, givesRoomToTheLatestOfVeryMany) {
    start();
    const cResourceRef mono = load("mono.wav");
    auto loop = manager->playSound(mono.get(), true, true);
    for (int i = 0; i < 300; ++i)
        manager->playOnce(mono.get());
    EXPECT_TRUE(loop->isPlaying());
    std::vector<std::unique_ptr<cChannel>> loops;
    EXPECT_THROW(
        {
            for (int i = 0; i < 201; ++i)
                loops.push_back(manager->playSound(mono.get(), true, true));
        },
        String);
}

TEST_F(Sound, saysWhichFileIsNoSound) {
    program.write("random.wav", std::string("RIFF\xFF\xFF\xFF\xFFWAVEfmt \x10\0\0\0garbagegarbage", 34));
    program.write("cut.wav", TestWave::makeSine(pitch, 0.5).substr(0, 1000));
    start();
    for (const char* name : {"noise.ogg", "random.wav", "missing.ogg"}) {
        try {
            load(name);
            FAIL() << name;
        } catch (const String& text) {
            EXPECT_EQ(text, String("Error loading sound file \"") + name + "\"");
        }
    }
    EXPECT_NE(load("cut.wav").get(), nullptr);  // what there is of it
    EXPECT_THROW(cSoundManager::fileRead(99, nullptr, 0), WString);
}

TEST_F(Sound, keepsItsVolumesInTheSettings) {
    program.write("sys/settings.xml", "<main><Sound Music=\"40\" Sound=\"900\"/></main>");
    start();
    EXPECT_EQ(manager->getMusicVolume(), 40u);
    EXPECT_EQ(manager->getSoundVolume(), 100u);
    manager->setSoundVolume(7);
    program.stop();
    EXPECT_NE(program.getDirectory().read("home/test/sys/settings.xml").find(String("7\0\"\0", 4)), String::npos);
}

TEST_F(Sound, isSilentWithoutADevice) {
    program.start();
    manager = cSoundManager::getInstance();
    EXPECT_TRUE(manager->isDisabled());
    const cResourceRef none = load("missing.ogg");
    EXPECT_EQ(manager->playSound(none.get(), true, true), nullptr);
    manager->playOnce(none.get());
    manager->setMusicVolume(25);
    manager->setPause(true);
    EXPECT_EQ(manager->getMusicVolume(), 25u);
    cChannel channel(7, groupSound);
    channel.setVolume(10);
    channel.play();
    EXPECT_TRUE(channel.isPaused());
    EXPECT_EQ(channel.getVolume(), 0);
}

}  // namespace Engine
