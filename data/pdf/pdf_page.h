// A PDF document, page by page, with text on it.
#pragma once

#include <cairo.h>
#include <pango/pangocairo.h>

#include <memory>
#include <string>
#include <string_view>

namespace brovanta::data_tool {

/// Calls the function that frees what the C libraries handed out.
template <auto Free>
struct FreeWith {
  template <typename Object>
  void operator()(Object* object) const {
    Free(object);
  }
};

/// How a piece of text looks.
struct TextStyle {
  double points = 9.5;
  bool bold = false;
  bool italic = false;
  PangoAlignment alignment = PANGO_ALIGN_LEFT;
};

/// Everything in points of 1/72 inch, from the top left corner of an A4 page. The fonts are those
/// of the machine, embedded; characters that one lacks come from another.
class PdfPages {
 public:
  static constexpr double kWidth = 595.28;
  static constexpr double kHeight = 841.89;

  PdfPages(const std::string& title, const std::string& author);
  PdfPages(const PdfPages&) = delete;
  PdfPages& operator=(const PdfPages&) = delete;

  void SetColor(double red, double green, double blue);

  /// How high the text is when it is broken into lines of this width.
  [[nodiscard]] double HeightOf(std::string_view text, const TextStyle& style, double width);
  /// How wide it is on one line.
  [[nodiscard]] double WidthOf(std::string_view text, const TextStyle& style);
  /// Draws it below `y`, broken into lines of the width, long words too and without hyphens.
  void Draw(std::string_view text, const TextStyle& style, double x, double y, double width);
  /// Draws it on one line that ends at `right`.
  void DrawLeftOf(std::string_view text, const TextStyle& style, double right, double y);

  void Line(double x, double y, double width, double thickness);
  void Box(double x, double y, double size);

  /// The page is full.
  void EndPage();

  /// Ends the document: its bytes, nothing when Cairo failed. Nothing can be drawn afterwards.
  [[nodiscard]] std::string Finish();

 private:
  void SetText(std::string_view text, const TextStyle& style, double width);

  std::string bytes_;
  std::unique_ptr<cairo_surface_t, FreeWith<cairo_surface_destroy>> surface_;
  std::unique_ptr<cairo_t, FreeWith<cairo_destroy>> cairo_;
  std::unique_ptr<PangoFontMap, FreeWith<g_object_unref>> fonts_;
  std::unique_ptr<PangoContext, FreeWith<g_object_unref>> context_;
  std::unique_ptr<PangoLayout, FreeWith<g_object_unref>> layout_;
};

}  // namespace brovanta::data_tool
