#include "Engine/core/CallStack.h"

#include <gtest/gtest.h>

#include <functional>

namespace Engine {

namespace {

void threeDeep(const std::function<void()>& fail) {
    ENGINE_MARK_TEXT("outer");
    [&] {
        ENGINE_MARK_TEXT("middle");
        [&] {
            ENGINE_MARK_TEXT("inner");
            fail();
        }();
    }();
}

String failureOf(const std::function<void()>& fail) {
    try {
        threeDeep(fail);
    } catch (...) {
        return currentFailure();
    }
    return "nothing was thrown";
}

}  // namespace

TEST(CallStack, namesEachMarkedFunctionFromTheInnermostOutwards) {
    EXPECT_EQ(failureOf([] { throw "x"; }), "x\ninner\nmiddle\nouter");
    EXPECT_EQ(failureOf([] { throw String("y"); }), "y\ninner\nmiddle\nouter");
    EXPECT_EQ(failureOf([] { throw std::string("z"); }), "z\ninner\nmiddle\nouter");
    EXPECT_EQ(callStackText(), "z\ninner\nmiddle\nouter");
}

TEST(CallStack, leavesTheFirstLineEmptyForAnUnknownException) {
    EXPECT_EQ(failureOf([] { throw 5; }), "\ninner\nmiddle\nouter");
}

TEST(CallStack, dropsTheLinesOfAFailureThatWasSwallowed) {
    try {
        threeDeep([] { throw "first"; });
    } catch (...) {
    }
    EXPECT_EQ(failureOf([] { throw "second"; }), "second\ninner\nmiddle\nouter");
}

TEST(CallStack, goesOnThroughAFunctionThatCatchesAndThrowsAgain) {
    const auto rethrow = [] {
        try {
            ENGINE_MARK_TEXT("reader");
            throw String("cut");
        } catch (...) {
            throw String(currentFailure() + " in file");
        }
    };
    EXPECT_EQ(failureOf(rethrow), "cut\nreader in file\ninner\nmiddle\nouter");
}

}  // namespace Engine
