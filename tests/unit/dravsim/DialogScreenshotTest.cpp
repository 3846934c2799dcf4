// `screenshot`: the screen as an SVG picture that a person can read, and that is well-formed
// whatever the texts on screen hold.
#include <GL/gl.h>
#include <XPLMDisplay.h>
#include <XPLMGraphics.h>

#include <filesystem>
#include <regex>

#include "DialogTestDialog.h"
#include "DravsimTestSupport.h"
#include "dravsim/Screenshot.h"

namespace dravsim::testing {
namespace {

// Every element opened is closed, in order, and nothing stray sits between the tags: enough of XML
// for the picture's simple structure (no comments, no CDATA).
::testing::AssertionResult WellFormed(const std::string& svg) {
  std::vector<std::string> open;
  std::size_t at = svg.find("?>");
  if (!svg.starts_with("<?xml") || at == std::string::npos) {
    return ::testing::AssertionFailure() << "no XML declaration";
  }
  const std::regex tag(R"re(<(/?)([a-zA-Z]+)((?:\s+[a-zA-Z:-]+="[^"<&]*")*)\s*(/?)>)re");
  for (at += 2; (at = svg.find('<', at)) != std::string::npos;) {
    std::smatch match;
    const std::string rest = svg.substr(at, 4096);
    if (!std::regex_search(rest, match, tag, std::regex_constants::match_continuous)) {
      return ::testing::AssertionFailure() << "bad tag at " << svg.substr(at, 60);
    }
    if (match[1] == "/") {
      if (open.empty() || open.back() != match[2]) {
        return ::testing::AssertionFailure() << "unbalanced </" << match[2] << ">";
      }
      open.pop_back();
    } else if (match[4] != "/") {
      open.push_back(match[2]);
    }
    at += static_cast<std::size_t>(match.length(0));
    const std::size_t next = svg.find('<', at);
    const std::string text = svg.substr(at, next - at);
    if (std::regex_search(text, std::regex(R"re(&(?!(amp|lt|gt|quot|apos);))re")) ||
        text.find('>') != std::string::npos) {
      return ::testing::AssertionFailure() << "unescaped text: " << text;
    }
  }
  if (!open.empty()) return ::testing::AssertionFailure() << "<" << open.back() << "> not closed";
  return ::testing::AssertionSuccess();
}

class DialogScreenshotTest : public ScenarioTest {
 protected:
  void TearDown() override {
    ForgetTestDialog();
    ScenarioTest::TearDown();
  }
};

TEST(EscapeXml, EscapesMarkupAndDropsControlCharacters) {
  EXPECT_EQ(EscapeXml("a<b & \"c\" 'd'>"), "a&lt;b &amp; &quot;c&quot; &apos;d&apos;&gt;");
  EXPECT_EQ(EscapeXml(std::string("x\x01y\tz", 5)), "x?y\tz");
  EXPECT_EQ(EscapeXml(""), "");
}

TEST_F(DialogScreenshotTest, TheDialogBecomesAWellFormedPictureWithItsTexts) {
  OpenTestDialog();
  const std::string svg = RenderScreenSvg(host().DrawScreen());
  EXPECT_TRUE(WellFormed(svg));
  EXPECT_TRUE(Contains(svg, "width=\"1024\" height=\"768\""));
  EXPECT_TRUE(Contains(svg, ">Test : Assign Functions</text>"));
  EXPECT_TRUE(Contains(svg, ">Button 2 &amp; &lt;more&gt;</text>"));
  EXPECT_TRUE(Contains(svg, ">GF-46 Unit 1</text>"));  // the pop-up's own drawing
  EXPECT_TRUE(Contains(svg, ">Thrust Rev Max</text>"));
  EXPECT_FALSE(Contains(svg, "*init*"));
  // The main window is a panel from its top-left corner, y counted down from the top.
  EXPECT_TRUE(Contains(svg, "<rect x=\"187\" y=\"59\" width=\"650\" height=\"650\""));
}

TEST_F(DialogScreenshotTest, TheSliderThumbSitsAtThePosition) {
  OpenTestDialog();
  auto thumbX = [&]() {
    const std::string svg = RenderScreenSvg(host().DrawScreen());
    // The thumb is the 10-pixel-wide rectangle on the slider row (y = 768 - 499).
    const std::regex thumb(R"re(<rect x="(\d+)" y="269" width="10" height="12")re");
    std::smatch match;
    return std::regex_search(svg, match, thumb) ? std::stoi(match[1]) : -1;
  };
  const int at60 = thumbX();
  host().DragSlider(TestDialog().sliders[0].slider, 0);
  const int at0 = thumbX();
  host().DragSlider(TestDialog().sliders[0].slider, 100);
  const int at100 = thumbX();
  EXPECT_EQ(at0, 187 + 310);         // the bar's left end
  EXPECT_EQ(at100, 187 + 450 - 10);  // its right end less the thumb
  EXPECT_EQ(at60, at0 + 78);         // 60 % of the 130-pixel travel
}

TEST_F(DialogScreenshotTest, AnOpenMenuIsDrawnOverTheDialog) {
  OpenTestDialog();
  host().ClickAt(187 + 50, 709 - 46);  // the device pop-up
  ASSERT_EQ(host().WindowCount(), 1);
  const std::string svg = RenderScreenSvg(host().DrawScreen());
  const std::size_t title = svg.find(">Test : Assign Functions<");
  const std::size_t item = svg.find(">GF-P8 Unit 1<");
  ASSERT_NE(item, std::string::npos);
  EXPECT_LT(title, item);  // later in the file is on top
}

void DrawShapes(XPLMWindowID, void*) {
  XPLMSetGraphicsState(0, 1, 0, 0, 1, 0, 0);  // the interface texture: nine pieces ...
  for (int i = 0; i < 3; ++i) {
    glBegin(GL_QUADS);
    glVertex2i(100 + 10 * i, 100);
    glVertex2i(110 + 10 * i, 100);
    glVertex2i(110 + 10 * i, 120);
    glVertex2i(100 + 10 * i, 120);
    glEnd();
  }
  XPLMSetGraphicsState(0, 0, 0, 0, 1, 0, 0);
  glColor4f(1, 0, 0, 0.25f);
  glBegin(GL_QUADS);
  glVertex2i(200, 200);
  glVertex2i(210, 200);
  glVertex2i(210, 210);
  glVertex2i(200, 210);
  glEnd();
}
void NoKeys(XPLMWindowID, char, XPLMKeyFlags, char, void*, int) {}
int NoClicks(XPLMWindowID, int, int, XPLMMouseStatus, void*) { return 0; }

TEST_F(DialogScreenshotTest, TexturedPiecesBecomeOneShapeAndColouredOnesKeepTheirColour) {
  XPLMCreateWindow(0, 300, 300, 0, 1, DrawShapes, NoKeys, NoClicks, nullptr);
  const std::string svg = RenderScreenSvg(host().DrawScreen());
  EXPECT_TRUE(WellFormed(svg));
  // One plain shape over the three textured pieces: x 100..130, y 100..120 (SVG y 648).
  EXPECT_TRUE(Contains(svg, "<rect x=\"100\" y=\"648\" width=\"30\" height=\"20\""));
  EXPECT_TRUE(Contains(svg, "fill=\"#ff0000\" stroke=\"none\" opacity=\"0.25\""));
  EXPECT_TRUE(Contains(svg, "points=\"200,568 210,568 210,558 200,558 \""));
}

TEST_F(DialogScreenshotTest, TheCommandWritesTheFileRelativeToTheCurrentFolder) {
  OpenTestDialog();
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(PluginFolder());
  const ScenarioResult result = Run("screenshot shot.svg\nscreenshot /no/such/folder/x.svg\n");
  std::filesystem::current_path(before);
  EXPECT_EQ(result.errors, 1);
  EXPECT_TRUE(Contains(Output(), "ERROR screenshot: cannot write \"/no/such/folder/x.svg\""));
  const std::string svg = ReadFileBytes(PluginFolder() / "shot.svg");
  EXPECT_TRUE(WellFormed(svg));
  EXPECT_TRUE(Contains(svg, "Test : Assign Functions"));
}

}  // namespace
}  // namespace dravsim::testing
