#include <gtest/gtest.h>

#include <string>

#include "platform/box_face.h"
#include "tests/support/menu_window.h"

namespace korvane {
namespace {

using enum HostEventType;

class MessageBoxTest : public MenuWindowTest {
  protected:
    /// Shows a box while the events come in one by one, each when the program waits; how many it
    /// took until the box was gone.
    int Ask(std::vector<HostEvent> events, std::uint32_t flags = MB_ICONERROR) {
        int given = 0;
        Screen().WhenWaiting([&] {
            if (given == 0) picture_ = Screen().Picture();
            if (given < static_cast<int>(events.size()))
                Screen().Push(events[static_cast<std::size_t>(given++)]);
        });
        MessageBox(window_, kText, "Caption", flags);
        Screen().WhenWaiting(nullptr);
        return given;
    }

    /// Where the box of this text lies in the window's picture.
    static RECT Place(std::uint32_t flags = MB_ICONERROR) {
        const SIZE size = Face(flags).size;
        const int left = (640 - size.cx) / 2;
        const int top = kMenuBarHeight + (480 - size.cy) / 2;
        return {left, top, left + size.cx, top + size.cy};
    }
    static BoxFace Face(std::uint32_t flags = MB_ICONERROR) {
        return LayOutBox({kText, "Caption", flags == MB_ICONERROR}, BoxFrame::Own, {640, 480},
                         Screen().Scale());
    }
    static POINT OnButton() {
        const RECT button = Face().button;
        return {Place().left + button.left + 5, Place().top + button.top + 5};
    }

    static constexpr const char* kText = "Something went wrong.\nThe program goes on.";
    std::vector<std::uint32_t> picture_;  ///< as the box first showed
};

TEST_F(MessageBoxTest, IsAnsweredByItsButtonAndKeysOnly) {
    Start();
    const HostEvent enter = Key(VK_RETURN, true);
    const HostEvent press = Mouse(LeftButtonDown, OnButton());
    const HostEvent release = Mouse(LeftButtonUp, OnButton());
    const HostEvent aside = Mouse(LeftButtonUp, {5, 5});
    struct Case {
        const char* way;
        std::vector<HostEvent> events;
        int needed;
    };
    const Case cases[] = {
        {"Return", {enter}, 1},
        {"Space", {Key(VK_SPACE, true)}, 1},
        {"Esc", {Key(VK_ESCAPE, true)}, 1},
        {"Alt+F4", {Key(VK_F4, true, kModAlt)}, 1},
        {"click", {press, release, enter}, 2},
        {"let go aside", {press, aside, release, enter}, 4},
        {"pressed aside", {Mouse(LeftButtonDown, {5, 5}), release, enter}, 3},
        {"other keys", {Key(VK_F4, true), Key('O', true), Key(VK_MENU, true, kModAlt), enter}, 4},
        {"held Return", {Key(VK_RETURN, true, 0, true), Key(VK_RETURN, false), enter}, 3},
        {"pointer and focus", {Mouse(MouseMove, OnButton()), {.type = Moved}, enter}, 3},
    };
    for (const Case& c : cases) {
        received_.clear();
        EXPECT_EQ(Ask(c.events), c.needed) << c.way;
        EXPECT_EQ(Count(WM_KEYDOWN) + Count(WM_SYSKEYDOWN) + Count(WM_KEYUP), 0u) << c.way;
        EXPECT_EQ(Count(WM_LBUTTONDOWN) + Count(WM_COMMAND) + Count(WM_CLOSE), 0u) << c.way;
    }
}

TEST_F(MessageBoxTest, ButtonLooksPressedWhileHeldDown) {
    Start();
    std::vector<std::vector<std::uint32_t>> pictures;
    const std::vector<HostEvent> events = {Mouse(LeftButtonDown, OnButton()),
                                           Mouse(MouseMove, {5, 5}), Mouse(MouseMove, OnButton()),
                                           Mouse(LeftButtonUp, OnButton())};
    std::size_t given = 0;
    Screen().WhenWaiting([&] {
        pictures.push_back(Screen().Picture());
        Screen().Push(events.at(given++));
    });
    MessageBox(window_, kText, "Caption", MB_ICONERROR);
    ASSERT_EQ(pictures.size(), 4u);
    EXPECT_EQ(pictures[0], pictures[2]);
    EXPECT_EQ(pictures[1], pictures[3]);
    EXPECT_NE(pictures[0], pictures[1]);
}

TEST_F(MessageBoxTest, OwnerSleepsAndForgetsHeldKeys) {
    Start();
    Push({Key(VK_LEFT, true)});
    received_.clear();
    Ask({Key(VK_LEFT, false), Key(VK_F5, true), Key(VK_RETURN, true)});
    const auto activations = Received(WM_ACTIVATE);
    ASSERT_EQ(activations.size(), 2u);
    EXPECT_EQ(activations[0].wParam, WA_INACTIVE);
    EXPECT_EQ(activations[1].wParam, WA_ACTIVE);
    ASSERT_EQ(Count(WM_KEYUP), 1u);
    EXPECT_EQ(Received(WM_KEYUP)[0].wParam, WPARAM{VK_LEFT});
    EXPECT_EQ(Count(WM_COMMAND), 0u);

    // Whoever has left the program meanwhile finds it asleep.
    received_.clear();
    Ask({{.type = Deactivated}, Key(VK_RETURN, true)});
    ASSERT_EQ(Count(WM_ACTIVATE), 1u);
    EXPECT_EQ(Received(WM_ACTIVATE)[0].wParam, WA_INACTIVE);
}

TEST_F(MessageBoxTest, OtherMessagesGoOn) {
    Start();
    SetTimer(window_, 7, 50);
    int timers = 0;
    onMessage_ = [&](const MSG& message) {
        if (message.message == WM_TIMER && ++timers == 3) Screen().Push(Key(VK_RETURN, true));
    };
    MessageBox(window_, kText, "Caption", MB_OK);
    EXPECT_EQ(timers, 3);
}

TEST_F(MessageBoxTest, LiesInTheMiddleAndLeavesNothingBehind) {
    for (const std::uint32_t flags : {MB_OK, MB_ICONERROR}) {
        if (!window_) Start();
        Click(TitleCentre(0));  // the box closes it
        const int presents = Screen().Presents();
        Ask({Key(VK_RETURN, true)}, flags);
        EXPECT_LT(Screen().Presents(), presents + 12);
        const RECT place = Place(flags);
        for (int y = kMenuBarHeight; y < 480 + kMenuBarHeight; ++y) {
            for (int x = 0; x < 640; ++x) {
                const RECT pixel{x, y, x + 1, y + 1};
                const bool inside = !Intersect(place, pixel).IsEmpty();
                const auto index = static_cast<std::size_t>(y * 640 + x);
                ASSERT_EQ(picture_[index] != kGameColour, inside) << x << " " << y;
                ASSERT_EQ(Screen().PixelAt(x, y), kGameColour);
            }
        }
    }
}

TEST_F(MessageBoxTest, StandsAloneBeforeTheWindowIsShown) {
    StartHidden();
    const SIZE windowSize = Screen().PictureSize();
    std::string title;
    bool visible = false;
    SIZE size;
    Screen().WhenWaiting([&] {
        title = Screen().Title();
        visible = Screen().IsVisible();
        size = Screen().PictureSize();
        EXPECT_EQ(Screen().PixelAt(0, 0), kFaceColour);
        Screen().Push(Key(VK_RETURN, true));
    });
    received_.clear();
    MessageBox(window_, kText, "Caption", MB_ICONERROR);
    EXPECT_TRUE(visible);
    EXPECT_EQ(title, "Caption");
    EXPECT_LT(size.cy, 150);
    EXPECT_FALSE(Screen().IsVisible());
    EXPECT_EQ(Screen().Title(), "Title");
    EXPECT_EQ(Screen().PictureSize(), windowSize);
    Pump();
    EXPECT_EQ(Count(WM_ACTIVATE), 0u);

    ShowWindow(window_);
    OpenDisplay();
    Pump();
    DrawFrame(kGameColour);
    EXPECT_EQ(Count(WM_ACTIVATE), 1u);
    Click(TitleCentre(1));
    EXPECT_EQ(ShownPopup(), 1u);
    Tap(VK_ESCAPE);
    for (const POINT at : {POINT{0, kMenuBarHeight}, POINT{300, 60}, POINT{639, 498}})
        EXPECT_EQ(Screen().PixelAt(at.x, at.y), kGameColour);
}

TEST_F(MessageBoxTest, ShowsInFullScreenAndWithoutDisplay) {
    Start();
    OpenFullScreen();
    Pump();
    DrawFrame(0x1234);
    const auto game = Screen().Picture();
    Ask({Key(VK_RETURN, true)});
    const SIZE size = Face().size;
    const auto at = [&](int x, int y) { return picture_[static_cast<std::size_t>(y * 640 + x)]; };
    EXPECT_EQ(at(320, 240 - size.cy / 2 + 6), kSelectionColour);
    EXPECT_EQ(at(5, 5), game[0]);
    EXPECT_EQ(Screen().Picture(), game);

    CloseDisplay();
    EXPECT_EQ(Ask({Key(VK_RETURN, true)}), 1);
    EXPECT_FALSE(Screen().IsFullScreen());
    EXPECT_EQ(std::count(picture_.begin(), picture_.end(), kSelectionColour) > 100, true);
}

TEST_F(MessageBoxTest, WhoeverEndsTheProgramEndsTheBox) {
    Start();
    MSG message;
    for (const auto& [type, expected] :
         {std::pair{Terminate, WM_CLOSE}, std::pair{CloseRequested, WM_SYSCOMMAND}}) {
        received_.clear();
        EXPECT_EQ(Ask({{.type = type}}), 1);
        EXPECT_EQ(Count(WM_CLOSE), 0u);
        ASSERT_TRUE(PeekMessage(message, PM_REMOVE));
        EXPECT_EQ(message.message, expected);
    }
    PostQuitMessage(5);
    EXPECT_EQ(Ask({}), 0);
    ASSERT_TRUE(PeekMessage(message, PM_REMOVE));
    EXPECT_EQ(message.message, WM_QUIT);
    EXPECT_EQ(message.wParam, 5u);
}

TEST_F(MessageBoxTest, SurvivesTheWindowsEnd) {
    Start();
    PostMessage(window_, WM_COMMAND, kOpen, 0);
    onMessage_ = [&](const MSG& message) {
        if (message.message == WM_COMMAND) DestroyWindow(window_);
    };
    EXPECT_EQ(Ask({}), 0);
    EXPECT_FALSE(Screen().IsOpen());
    window_ = nullptr;
    MessageBox(nullptr, kText, "Caption", MB_OK);
    ASSERT_EQ(Screen().Reports().size(), 1u);
}

TEST_F(MessageBoxTest, HoldsUnderRandomUse) {
    Start();
    std::mt19937 random(12);
    int boxes = 0;
    bool open = false;
    bool steered = false;
    Screen().WhenWaiting([&] { Screen().Push(RandomEvent(random)); });
    onMessage_ = [&](const MSG& message) {
        steered |= open && (message.message == WM_KEYDOWN || message.message == WM_LBUTTONDOWN);
        if (message.message != WM_COMMAND || open) return;
        open = true;
        ++boxes;
        MessageBox(window_, kText, "Caption", MB_ICONERROR);
        open = false;
    };
    for (int i = 0; i < 30'000; ++i) {
        Screen().Push(RandomEvent(random));
        Pump();
        received_.clear();
        DrawFrame(kGameColour, {0, 0, 40 + i % 50, 60}, static_cast<unsigned>(i));
        if (i % 512 != 0) continue;
        DrawFrame(kGameColour);
        Push({{.type = Deactivated}});
        ASSERT_EQ(GamePixelsOtherThan(kGameColour), 0) << i;
    }
    EXPECT_GT(boxes, 50);
    EXPECT_FALSE(steered);
}

TEST(BoxFaceTest, WrapsText) {
    const int wide = TextWidth("one two", 1);
    struct Case {
        const char* text;
        std::vector<std::string> lines;
    };
    const Case cases[] = {
        {"", {""}},
        {"one two", {"one two"}},
        {"one two three", {"one two", "three"}},
        {"one\ntwo", {"one", "two"}},
        {"one\n\ntwo\n", {"one", "", "two", ""}},
        {"one two ", {"one two"}},
        {"iiiiiiiiiiiiiiiiiiiiiiii", {}},
        {"\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4", {}},
    };
    for (const Case& c : cases) {
        const auto lines = WrapText(c.text, wide, 1);
        std::string joined;
        for (const std::string& line : lines) {
            EXPECT_LE(TextWidth(line, 1), wide) << c.text;
            EXPECT_TRUE(line.empty() || (line[0] & 0xC0) != 0x80) << "a character cut in two";
            joined += line;
        }
        if (c.lines.empty()) {
            EXPECT_GT(lines.size(), 1u);
            EXPECT_EQ(joined, c.text);
        } else {
            EXPECT_EQ(lines, c.lines);
        }
    }
}

TEST(BoxFaceTest, KeepsItsButtonInSight) {
    std::string text;
    for (const SIZE limit : {SIZE{640, 480}, SIZE{200, 120}, SIZE{10, 10}}) {
        text += std::string(500, 'm') + " line\nmore ";
        for (const BoxFrame frame : {BoxFrame::Own, BoxFrame::Desktop}) {
            const BoxFace face = LayOutBox({text, text, true}, frame, limit, 1);
            const RECT all{0, 0, face.size.cx, face.size.cy};
            EXPECT_EQ(Intersect(face.button, all), face.button);
            if (limit.cx > 10) {
                EXPECT_LE(face.size.cx, limit.cx);
                EXPECT_LE(face.size.cy, limit.cy);
            }
            for (const RECT& row : face.rows)
                EXPECT_LE(row.bottom, face.button.top);
        }
    }
}

}  // namespace
}  // namespace korvane
