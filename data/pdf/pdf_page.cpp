#include "data/pdf/pdf_page.h"

#include <cairo-pdf.h>

#include <utility>

namespace brovanta::data_tool {
namespace {

constexpr char kFamily[] = "sans-serif";
constexpr double kPointsPerInch = 72;

cairo_status_t Append(void* bytes, const unsigned char* data, unsigned int length) {
  static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
  return CAIRO_STATUS_SUCCESS;
}

using Attributes = std::unique_ptr<PangoAttrList, FreeWith<pango_attr_list_unref>>;

// A coupon's code or an address would be another one with a hyphen where its line was broken.
Attributes WithoutHyphens() {
  Attributes attributes(pango_attr_list_new());
  pango_attr_list_insert(attributes.get(), pango_attr_insert_hyphens_new(FALSE));
  return attributes;
}

}  // namespace

PdfPages::PdfPages(const std::string& title, const std::string& author)
    : surface_(cairo_pdf_surface_create_for_stream(Append, &bytes_, kWidth, kHeight)),
      cairo_(cairo_create(surface_.get())),
      fonts_(pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT)),
      context_(pango_font_map_create_context(fonts_.get())) {
  cairo_pdf_surface_set_metadata(surface_.get(), CAIRO_PDF_METADATA_TITLE, title.c_str());
  cairo_pdf_surface_set_metadata(surface_.get(), CAIRO_PDF_METADATA_AUTHOR, author.c_str());
  pango_cairo_context_set_resolution(context_.get(), kPointsPerInch);
  pango_cairo_update_context(cairo_.get(), context_.get());
  pango_context_set_round_glyph_positions(context_.get(), FALSE);
  layout_.reset(pango_layout_new(context_.get()));
  pango_layout_set_attributes(layout_.get(), WithoutHyphens().get());
}

void PdfPages::SetColor(double red, double green, double blue) {
  cairo_set_source_rgb(cairo_.get(), red, green, blue);
}

double PdfPages::HeightOf(std::string_view text, const TextStyle& style, double width) {
  SetText(text, style, width);
  int height = 0;
  pango_layout_get_size(layout_.get(), nullptr, &height);
  return pango_units_to_double(height);
}

double PdfPages::WidthOf(std::string_view text, const TextStyle& style) {
  SetText(text, style, -1);
  int width = 0;
  pango_layout_get_size(layout_.get(), &width, nullptr);
  return pango_units_to_double(width);
}

void PdfPages::Draw(std::string_view text, const TextStyle& style, double x, double y,
                    double width) {
  SetText(text, style, width);
  cairo_move_to(cairo_.get(), x, y);
  pango_cairo_show_layout(cairo_.get(), layout_.get());
}

void PdfPages::DrawLeftOf(std::string_view text, const TextStyle& style, double right, double y) {
  Draw(text, style, right - WidthOf(text, style), y, -1);
}

void PdfPages::Line(double x, double y, double width, double thickness) {
  cairo_rectangle(cairo_.get(), x, y, width, thickness);
  cairo_fill(cairo_.get());
}

void PdfPages::Box(double x, double y, double size) {
  cairo_set_line_width(cairo_.get(), 0.7);
  cairo_rectangle(cairo_.get(), x, y, size, size);
  cairo_stroke(cairo_.get());
}

void PdfPages::EndPage() { cairo_show_page(cairo_.get()); }

std::string PdfPages::Finish() {
  cairo_surface_finish(surface_.get());
  const bool done = cairo_surface_status(surface_.get()) == CAIRO_STATUS_SUCCESS &&
                    cairo_status(cairo_.get()) == CAIRO_STATUS_SUCCESS;
  return done ? std::move(bytes_) : std::string();
}

void PdfPages::SetText(std::string_view text, const TextStyle& style, double width) {
  const std::unique_ptr<PangoFontDescription, FreeWith<pango_font_description_free>> font(
      pango_font_description_new());
  pango_font_description_set_family_static(font.get(), kFamily);
  pango_font_description_set_size(font.get(), pango_units_from_double(style.points));
  if (style.bold) pango_font_description_set_weight(font.get(), PANGO_WEIGHT_BOLD);
  if (style.italic) pango_font_description_set_style(font.get(), PANGO_STYLE_ITALIC);
  pango_layout_set_font_description(layout_.get(), font.get());
  pango_layout_set_width(layout_.get(), width < 0 ? -1 : pango_units_from_double(width));
  pango_layout_set_wrap(layout_.get(), PANGO_WRAP_WORD_CHAR);
  pango_layout_set_alignment(layout_.get(), style.alignment);
  pango_layout_set_text(layout_.get(), text.data(), static_cast<int>(text.size()));
}

}  // namespace brovanta::data_tool
