#include <gtest/gtest.h>
#include <stdlib.h>

#include <tuple>
#include <vector>

#include "platform/base/virtual_keys.h"
#include "platform/sdl/sdl_host.h"

namespace korvane {
namespace {

using enum HostEventType;

SDL_Event Event(std::uint32_t type, int windowEvent = 0) {
    SDL_Event event{};
    event.type = type;
    event.window.event = static_cast<std::uint8_t>(windowEvent);
    return event;
}

SDL_Event KeyEvent(SDL_EventType type, SDL_Scancode key, int modifiers = 0, bool repeat = false) {
    SDL_Event event = Event(type);
    event.key.keysym.scancode = key;
    event.key.keysym.mod = static_cast<std::uint16_t>(modifiers);
    event.key.repeat = repeat ? 1 : 0;
    return event;
}

SDL_Event MouseEvent(SDL_EventType type, POINT at, int button = 0) {
    SDL_Event event = Event(type);
    (type == SDL_MOUSEMOTION ? event.motion.x : event.button.x) = at.x;
    (type == SDL_MOUSEMOTION ? event.motion.y : event.button.y) = at.y;
    if (type != SDL_MOUSEMOTION) event.button.button = static_cast<std::uint8_t>(button);
    return event;
}

SDL_Event WheelEvent(int notches, POINT at) {
    SDL_Event event = Event(SDL_MOUSEWHEEL);
    event.wheel.y = notches;
    event.wheel.mouseX = at.x;
    event.wheel.mouseY = at.y;
    return event;
}

SDL_Event TextEvent(const char* text) {
    SDL_Event event = Event(SDL_TEXTINPUT);
    SDL_strlcpy(event.text.text, text, sizeof event.text.text);
    return event;
}

auto Fields(const HostEvent& event) {
    return std::tie(event.type, event.key, event.modifiers, event.repeat, event.x, event.y,
                    event.amount, event.character);
}

/// What SDL reports, with its video driver that shows nothing.
class SdlEventsTest : public testing::Test {
  protected:
    struct Case {
        SDL_Event event;
        std::vector<HostEvent> wanted;
    };

    void SetUp() override {
        setenv("SDL_VIDEODRIVER", "dummy", 1);
        ASSERT_TRUE(host_.OpenWindow("Events", {640, 480}));
        DropEvents();
    }
    void TearDown() override {
        SDL_SetModState(KMOD_NONE);
        host_.CloseWindow();
    }

    void DropEvents() {
        HostEvent event;
        while (host_.NextEvent(event)) {
        }
    }
    void Try(std::vector<Case> cases) {
        for (Case& c : cases) {
            SCOPED_TRACE(testing::Message() << "row " << &c - cases.data());
            ASSERT_EQ(SDL_PushEvent(&c.event), 1);
            HostEvent got;
            for (const HostEvent& wanted : c.wanted) {
                host_.WaitForEvent(1);
                ASSERT_TRUE(host_.NextEvent(got));
                EXPECT_TRUE(Fields(got) == Fields(wanted));
            }
            EXPECT_FALSE(host_.NextEvent(got));
        }
    }

    SdlHost host_;
};

TEST_F(SdlEventsTest, KeysComeWithTheirModifiersAndAreReleasedAsTheyWerePressed) {
    Try({
        {KeyEvent(SDL_KEYDOWN, SDL_SCANCODE_A), {{.type = KeyDown, .key = 'A'}}},
        {KeyEvent(SDL_KEYDOWN, SDL_SCANCODE_A, KMOD_RSHIFT, true),
         {{.type = KeyDown, .key = 'A', .modifiers = kModShift, .repeat = true}}},
        {KeyEvent(SDL_KEYUP, SDL_SCANCODE_A, KMOD_LCTRL | KMOD_LALT),
         {{.type = KeyUp, .key = 'A', .modifiers = kModControl | kModAlt}}},
        {KeyEvent(SDL_KEYDOWN, SDL_SCANCODE_KP_8, KMOD_NUM),
         {{.type = KeyDown, .key = VK_NUMPAD0 + 8}}},
        {KeyEvent(SDL_KEYUP, SDL_SCANCODE_KP_8), {{.type = KeyUp, .key = VK_NUMPAD0 + 8}}},
        {KeyEvent(SDL_KEYDOWN, SDL_SCANCODE_KP_8), {{.type = KeyDown, .key = VK_UP}}},
        {KeyEvent(SDL_KEYDOWN, SDL_SCANCODE_MUTE), {}},
        {TextEvent("aß"), {{.type = Text, .character = U'a'}, {.type = Text, .character = U'ß'}}},
    });
}

TEST_F(SdlEventsTest, WhatHappensToTheWindow) {
    Try({
        {Event(SDL_WINDOWEVENT, SDL_WINDOWEVENT_SIZE_CHANGED), {{.type = Resized}}},
        {Event(SDL_WINDOWEVENT, SDL_WINDOWEVENT_MOVED), {{.type = Moved}}},
        {Event(SDL_WINDOWEVENT, SDL_WINDOWEVENT_FOCUS_GAINED), {{.type = Activated}}},
        {Event(SDL_WINDOWEVENT, SDL_WINDOWEVENT_FOCUS_LOST), {{.type = Deactivated}}},
        {Event(SDL_WINDOWEVENT, SDL_WINDOWEVENT_MINIMIZED), {{.type = Minimized}}},
        {Event(SDL_WINDOWEVENT, SDL_WINDOWEVENT_RESTORED), {{.type = Restored}}},
        {Event(SDL_WINDOWEVENT, SDL_WINDOWEVENT_CLOSE), {{.type = CloseRequested}}},
        {Event(SDL_WINDOWEVENT, SDL_WINDOWEVENT_ENTER), {}},
        {Event(SDL_QUIT), {{.type = CloseRequested}}},
        {Event(kTerminateEvent), {{.type = Terminate}}},
        {Event(SDL_CLIPBOARDUPDATE), {}},
    });
}

TEST_F(SdlEventsTest, TheMousePointsIntoThePicture) {
    SDL_SetModState(KMOD_LSHIFT);
    Try({
        {MouseEvent(SDL_MOUSEBUTTONDOWN, {12, 34}, SDL_BUTTON_LEFT),
         {{.type = LeftButtonDown, .modifiers = kModShift, .x = 12, .y = 34}}},
        {MouseEvent(SDL_MOUSEBUTTONUP, {-1, 5}, SDL_BUTTON_LEFT),
         {{.type = LeftButtonUp, .modifiers = kModShift, .x = -1, .y = 5}}},
        {MouseEvent(SDL_MOUSEBUTTONDOWN, {12, 34}, SDL_BUTTON_RIGHT), {}},
    });
    SDL_SetModState(KMOD_NONE);
    host_.SetClientSize({320, 240});
    host_.SetScale(2);
    DropEvents();
    EXPECT_EQ(host_.ClientArea().Size(), (SIZE{320, 240}));
    Try({
        {MouseEvent(SDL_MOUSEMOTION, {639, 479}), {{.type = MouseMove, .x = 319, .y = 239}}},
        {MouseEvent(SDL_MOUSEMOTION, {640, -1}), {{.type = MouseMove, .x = 320, .y = -1}}},
    });
    // 1024 x 768 holds it at most at three quarters of that.
    host_.SetClientSize({1280, 1024});
    host_.SetScale(1);
    DropEvents();
    Try({
        {MouseEvent(SDL_MOUSEMOTION, {0, 0}), {{.type = MouseMove}}},
        {MouseEvent(SDL_MOUSEMOTION, {959, 767}), {{.type = MouseMove, .x = 1278, .y = 1022}}},
        {MouseEvent(SDL_MOUSEMOTION, {-1, 768}), {{.type = MouseMove, .x = -2, .y = 1024}}},
    });
    // Three screen pixels for each of the picture's, in the middle of 1024 x 768.
    ASSERT_TRUE(host_.EnterFullScreen({320, 240}));
    DropEvents();
    ASSERT_EQ(host_.ScreenSize(), (SIZE{1024, 768}));
    Try({
        {MouseEvent(SDL_MOUSEMOTION, {32, 24}), {{.type = MouseMove}}},
        {MouseEvent(SDL_MOUSEMOTION, {32 + 3 * 100 + 2, 24 + 3 * 50}),
         {{.type = MouseMove, .x = 100, .y = 50}}},
        {MouseEvent(SDL_MOUSEMOTION, {31, 20}), {{.type = MouseMove, .x = -1, .y = -2}}},
        {WheelEvent(-2, {35, 30}), {{.type = Wheel, .x = 1, .y = 2, .amount = -2}}},
    });
}

}  // namespace
}  // namespace korvane
