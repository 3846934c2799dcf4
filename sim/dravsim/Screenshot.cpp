#include "dravsim/Screenshot.h"

#include <GL/gl.h>
#include <XPStandardWidgets.h>
#include <XPUIGraphics.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>

#include "dravsim/CommandArgs.h"
#include "host/WidgetClasses.h"

namespace dravsim {
namespace {

// X-Plane's classic interface: dark grey-blue panels, a darker title bar, light grey text.
constexpr std::string_view kDesktop = "#161c20";
constexpr std::string_view kPanel = "#3b4a51";
constexpr std::string_view kPanelEdge = "#1c2427";
constexpr std::string_view kTitleBar = "#2a363c";
constexpr std::string_view kSubPanel = "#313e44";
constexpr std::string_view kButton = "#56666d";
constexpr std::string_view kButtonEdge = "#7d8c92";
constexpr std::string_view kField = "#1f282c";
constexpr std::string_view kTrack = "#222b2f";
constexpr std::string_view kThumb = "#8d9ca2";
constexpr std::string_view kText = "#d9dee0";
// The interface texture's buttons and menus: dark slate with a lighter rim, as the simulator's own
// pop-up buttons and menus look, under the light menu texts the plug-in draws on them.
constexpr std::string_view kTexturedButton = "#2b363c";
constexpr std::string_view kTexturedMenu = "#313d43";
constexpr std::string_view kTexturedEdge = "#7d8c92";
// A widget's button texture reaches 4 pixels past the widget on each side (transparent margin).
constexpr int kTextureMargin = 4;
// X-Plane's proportional UI face at the size the simulator measures texts with (XPLMMeasureString),
// so that a text drawn in the picture is as wide as the plug-in measured it.
constexpr int kFontSize = 12;

std::string Hex(const sim::Rgba& colour) {
  auto channel = [](float value) {
    return static_cast<int>(std::lround(std::clamp(value, 0.0f, 1.0f) * 255.0f));
  };
  char text[8];
  std::snprintf(text, sizeof text, "#%02x%02x%02x", channel(colour[0]), channel(colour[1]),
                channel(colour[2]));
  return text;
}

std::string Number(double value) {
  // "%g" of the "C" locale: SVG wants a decimal point whatever locale the run has.
  char text[32];
  const std::to_chars_result result =
      std::to_chars(text, text + sizeof text, value, std::chars_format::general, 6);
  return std::string(text, result.ec == std::errc() ? result.ptr : text);
}

// Writes shapes in SVG's top-down pixels from X-Plane's bottom-up ones.
class SvgCanvas {
 public:
  explicit SvgCanvas(int height) : height_(height) {}

  void Rect(const sim::ScreenRect& r, std::string_view fill, std::string_view stroke = {},
            double radius = 0, double opacity = 1) {
    const int left = std::min(r.left, r.right), right = std::max(r.left, r.right);
    const int top = std::max(r.top, r.bottom), bottom = std::min(r.top, r.bottom);
    out_ << "<rect x=\"" << left << "\" y=\"" << height_ - top << "\" width=\"" << right - left
         << "\" height=\"" << top - bottom << "\" fill=\"" << fill << "\"";
    if (!stroke.empty()) out_ << " stroke=\"" << stroke << "\"";
    if (radius > 0) out_ << " rx=\"" << Number(radius) << "\"";
    if (opacity < 1) out_ << " fill-opacity=\"" << Number(opacity) << "\"";
    out_ << "/>\n";
  }

  void Shape(std::string_view element, const std::vector<sim::DrawnVertex>& vertices,
             std::string_view fill, std::string_view stroke, double opacity, double width) {
    out_ << "<" << element << " points=\"";
    for (const sim::DrawnVertex& v : vertices) out_ << Number(v.x) << "," << Number(height_ - v.y) << " ";
    out_ << "\" fill=\"" << fill << "\" stroke=\"" << stroke << "\"";
    if (opacity < 1) out_ << " opacity=\"" << Number(opacity) << "\"";
    if (stroke != "none") out_ << " stroke-width=\"" << Number(width) << "\"";
    out_ << "/>\n";
  }

  // X-Plane places a string by the lower-left pixel of its cell; the baseline sits 2 px above.
  void Text(int x, int y, std::string_view text, std::string_view colour) {
    out_ << "<text x=\"" << x << "\" y=\"" << height_ - y - 2 << "\" fill=\"" << colour << "\">"
         << EscapeXml(text) << "</text>\n";
  }

  void Raw(std::string_view text) { out_ << text; }
  std::string Take() { return out_.str(); }

 private:
  int height_;
  std::ostringstream out_;
};

void DrawMainWindow(SvgCanvas& svg, const sim::DisplayItem& item) {
  const sim::ScreenRect& g = item.geometry;
  svg.Rect(g, kPanel, kPanelEdge, 3);
  svg.Rect(sim::TitleBarRect(g), kTitleBar, kPanelEdge, 3);
  const auto closeBox = item.properties.find(xpProperty_MainWindowHasCloseBoxes);
  if (closeBox == item.properties.end() || closeBox->second == 0) return;
  const sim::ScreenRect box = sim::CloseBoxRect(g);
  svg.Rect(box, kButton, kButtonEdge, 2);
  const auto x1 = static_cast<float>(box.left + 3), x2 = static_cast<float>(box.right - 3);
  const auto y1 = static_cast<float>(box.bottom + 3), y2 = static_cast<float>(box.top - 3);
  const std::vector<sim::DrawnVertex> first{{x1, y1}, {x2, y2}};
  const std::vector<sim::DrawnVertex> second{{x1, y2}, {x2, y1}};
  svg.Shape("polyline", first, "none", kText, 1, 1.5);
  svg.Shape("polyline", second, "none", kText, 1, 1.5);
}

intptr_t PropertyOf(const sim::DisplayItem& item, int id) {
  const auto it = item.properties.find(id);
  return it != item.properties.end() ? it->second : 0;
}

void DrawScrollBar(SvgCanvas& svg, const sim::DisplayItem& item) {
  const sim::ScreenRect& g = item.geometry;
  const bool horizontal = (g.right - g.left) >= (g.top - g.bottom);
  const int middle = horizontal ? (g.top + g.bottom) / 2 : (g.left + g.right) / 2;
  const sim::ScreenRect track = horizontal ? sim::ScreenRect{g.left, middle + 2, g.right, middle - 2}
                                           : sim::ScreenRect{middle - 2, g.top, middle + 2, g.bottom};
  svg.Rect(track, kTrack, kPanelEdge, 2);
  int x = 0, y = 0;
  sim::SliderPointFor(g, static_cast<int>(PropertyOf(item, xpProperty_ScrollBarMin)),
                      static_cast<int>(PropertyOf(item, xpProperty_ScrollBarMax)),
                      static_cast<int>(PropertyOf(item, xpProperty_ScrollBarSliderPosition)), &x, &y);
  const int half = sim::kSliderThumbWidth / 2;
  const sim::ScreenRect thumb = horizontal ? sim::ScreenRect{x - half, g.top, x + half, g.bottom}
                                           : sim::ScreenRect{g.left, y + half, g.right, y - half};
  svg.Rect(thumb, kThumb, kButtonEdge, 2);
}

// The standard classes by what they are; custom widgets only by what they drew.
void DrawStandardWidget(SvgCanvas& svg, const sim::DisplayItem& item) {
  switch (item.widgetClass) {
    case xpWidgetClass_MainWindow: DrawMainWindow(svg, item); break;
    case xpWidgetClass_SubWindow: svg.Rect(item.geometry, kSubPanel, kPanelEdge, 2); break;
    case xpWidgetClass_Button: svg.Rect(item.geometry, kButton, kButtonEdge, 3); break;
    case xpWidgetClass_TextField: svg.Rect(item.geometry, kField, kButtonEdge, 1); break;
    case xpWidgetClass_ScrollBar: DrawScrollBar(svg, item); break;
    case xpWidgetClass_Progress: svg.Rect(item.geometry, kField, kButtonEdge, 1); break;
    default: break;  // captions are their text
  }
}

// Elements a custom widget drew (a standard widget's are shown by its class).
void DrawElements(SvgCanvas& svg, const sim::DisplayItem& item) {
  for (const sim::DrawnElement& element : item.elements) {
    if (element.isWindow) {
      svg.Rect(element.rect, element.style == xpWindow_MainWindow ? kPanel : kSubPanel, kPanelEdge, 3);
    } else if (element.style == xpElement_TextField || element.style == xpElement_TextFieldMiddle) {
      svg.Rect(element.rect, kField, kButtonEdge, 1);
    } else {
      svg.Rect(element.rect, kButton, kButtonEdge, 3);
    }
  }
}

std::vector<std::vector<sim::DrawnVertex>> Pieces(const sim::DrawnPrimitive& primitive,
                                                  std::size_t size) {
  std::vector<std::vector<sim::DrawnVertex>> pieces;
  for (std::size_t i = 0; i + size <= primitive.vertices.size(); i += size) {
    pieces.emplace_back(primitive.vertices.begin() + static_cast<std::ptrdiff_t>(i),
                        primitive.vertices.begin() + static_cast<std::ptrdiff_t>(i + size));
  }
  return pieces;
}

void DrawPrimitive(SvgCanvas& svg, const sim::DrawnPrimitive& primitive) {
  if (primitive.vertices.empty()) return;
  const sim::Rgba& colour = primitive.vertices.front().colour;
  const std::string fill = Hex(colour);
  const double opacity = colour[3];
  switch (primitive.mode) {
    case GL_LINES:
      for (const auto& piece : Pieces(primitive, 2)) {
        svg.Shape("polyline", piece, "none", fill, opacity, primitive.lineWidth);
      }
      break;
    case GL_LINE_STRIP: svg.Shape("polyline", primitive.vertices, "none", fill, opacity, primitive.lineWidth); break;
    case GL_LINE_LOOP: svg.Shape("polygon", primitive.vertices, "none", fill, opacity, primitive.lineWidth); break;
    case GL_QUADS:
      for (const auto& piece : Pieces(primitive, 4)) svg.Shape("polygon", piece, fill, "none", opacity, 0);
      break;
    case GL_TRIANGLES:
      for (const auto& piece : Pieces(primitive, 3)) svg.Shape("polygon", piece, fill, "none", opacity, 0);
      break;
    default:  // fans, polygons and strips: their outline is close enough for a picture
      svg.Shape("polygon", primitive.vertices, fill, "none", opacity, 0);
      break;
  }
}

// Textured quads come from the simulator's interface texture, which a picture does not have: the
// textured pieces of one item (a nine-part button or menu background) become one plain shape.
void DrawTexturedShape(SvgCanvas& svg, const sim::DisplayItem& item) {
  float left = 1e9f, right = -1e9f, bottom = 1e9f, top = -1e9f;
  for (const sim::DrawnPrimitive& primitive : item.primitives) {
    if (!primitive.textured) continue;
    for (const sim::DrawnVertex& v : primitive.vertices) {
      left = std::min(left, v.x), right = std::max(right, v.x);
      bottom = std::min(bottom, v.y), top = std::max(top, v.y);
    }
  }
  if (left > right) return;
  const bool menu = item.kind == sim::DisplayItemKind::Window;
  const int margin = menu ? 0 : kTextureMargin;
  const sim::ScreenRect box{static_cast<int>(left) + margin, static_cast<int>(top) - margin,
                            static_cast<int>(right) - margin, static_cast<int>(bottom) + margin};
  svg.Rect(box, menu ? kTexturedMenu : kTexturedButton, kTexturedEdge, menu ? 2 : 4);
}

void DrawDrawnShapes(SvgCanvas& svg, const sim::DisplayItem& item) {
  bool texturedDone = false;
  for (const sim::DrawnPrimitive& primitive : item.primitives) {
    if (!primitive.textured) {
      DrawPrimitive(svg, primitive);
    } else if (!texturedDone) {
      DrawTexturedShape(svg, item);
      texturedDone = true;
    }
  }
}

void DrawItem(SvgCanvas& svg, const sim::DisplayItem& item) {
  if (item.kind == sim::DisplayItemKind::Widget && !item.custom) DrawStandardWidget(svg, item);
  if (item.kind == sim::DisplayItemKind::Window || item.custom) DrawElements(svg, item);
  DrawDrawnShapes(svg, item);
  for (const sim::DrawnText& text : item.texts) {
    svg.Text(text.x, text.y, text.text, Hex(text.colour));
  }
}

}  // namespace

std::string EscapeXml(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size());
  for (const char c : text) {
    switch (c) {
      case '&': escaped += "&amp;"; break;
      case '<': escaped += "&lt;"; break;
      case '>': escaped += "&gt;"; break;
      case '"': escaped += "&quot;"; break;
      case '\'': escaped += "&apos;"; break;
      default:
        // Control characters are not allowed in XML 1.0; a picture shows them as '?'.
        escaped += (static_cast<unsigned char>(c) < 0x20 && c != '\t') ? '?' : c;
    }
  }
  return escaped;
}

std::string RenderScreenSvg(const sim::DisplayList& screen) {
  SvgCanvas svg(screen.screenHeight);
  std::ostringstream head;
  head << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
       << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << screen.screenWidth << "\" height=\""
       << screen.screenHeight << "\" viewBox=\"0 0 " << screen.screenWidth << " "
       << screen.screenHeight << "\" font-family=\"DejaVu Sans, Verdana, sans-serif\" "
       << "font-size=\"" << kFontSize << "\" xml:space=\"preserve\">\n";
  svg.Raw(head.str());
  svg.Rect(sim::ScreenRect{0, screen.screenHeight, screen.screenWidth, 0}, kDesktop);
  for (const sim::DisplayItem& item : screen.items) DrawItem(svg, item);
  svg.Raw("</svg>\n");
  return svg.Take();
}

void ScreenshotCommand(ScenarioContext& ctx, const Invocation& call) {
  if (call.args.size() != 1) {
    UsageError(ctx, call);
    return;
  }
  const std::string& file = call.args[0].text;
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out << RenderScreenSvg(ctx.host.DrawScreen());
  out.close();
  if (!out) {
    CommandError(ctx, call, "cannot write " + Quoted(file));
    return;
  }
  ctx.Note("wrote " + file);
}

}  // namespace dravsim
