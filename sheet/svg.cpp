#include <cmath>

#include "sheet/drawing.h"
#include "sheet/paint_order.h"

namespace sheet {

namespace {

/// Finer than paper needs, because other programs read the scale bar and wires back from the file.
std::string Number(double value) { return Decimal(value, 5); }

std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

std::string Hex(const Ink& ink) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string text = "#";
  for (const double part : {ink.Red, ink.Green, ink.Blue}) {
    const auto value = static_cast<std::size_t>(std::lround(part * 255.0));
    text += {kDigits[value / 16 % 16], kDigits[value % 16]};
  }
  return text;
}

std::string Attribute(const char* name, const std::string& value) {
  return std::string(" ") + name + "=\"" + value + '"';
}

/// Writes the shapes of one page, whose upper edge is `below` under the document's.
class ShapeWriter {
 public:
  ShapeWriter(std::string& svg, double lowerEdge) : svg_(svg), lowerEdge_(lowerEdge) {}

  void operator()(const Line& line) const {
    svg_ += "<line" + Attribute("x1", Number(line.From.x)) + Attribute("y1", Y(line.From)) +
            Attribute("x2", Number(line.To.x)) + Attribute("y2", Y(line.To));
    Close(std::nullopt, line.Pen);
  }

  void operator()(const Area& area) const {
    svg_ += "<path fill-rule=\"evenodd\" d=\"";
    for (const std::vector<glm::dvec2>& outline : area.Outlines) {
      const char* step = "M";
      for (const glm::dvec2& point : outline) {
        svg_.append(step).append(Number(point.x)).append(" ").append(Y(point));
        step = "L";
      }
      svg_ += 'Z';
    }
    svg_ += '"';
    Close(area.Fill, area.Pen);
  }

  void operator()(const Circle& circle) const {
    svg_ += "<circle" + Attribute("cx", Number(circle.Centre.x)) + Attribute("cy", Y(circle.Centre)) +
            Attribute("r", Number(circle.Radius));
    Close(circle.Fill, circle.Pen);
  }

  void operator()(const Text& text) const {
    svg_ += "<text";
    if (text.Upright) {
      svg_ += Attribute("transform", "translate(" + Number(text.At.x) + ' ' + Y(text.At) + ") rotate(-90)");
    } else {
      svg_ += Attribute("x", Number(text.At.x)) + Attribute("y", Y(text.At));
    }
    svg_ += Attribute("font-size", Number(text.Size));
    if (text.Alignment != Align::Start)
      svg_ += Attribute("text-anchor", text.Alignment == Align::End ? "end" : "middle");
    if (text.Bold) svg_ += " font-weight=\"bold\"";
    if (text.Colour != kBlack) svg_ += Attribute("fill", Hex(text.Colour));
    svg_ += '>' + Escaped(text.Words) + "</text>\n";
  }

 private:
  std::string Y(const glm::dvec2& point) const { return Number(lowerEdge_ - point.y); }

  void Close(const std::optional<Ink>& fill, const std::optional<Stroke>& stroke) const {
    svg_ += Attribute("fill", fill ? Hex(*fill) : "none");
    if (stroke) {
      svg_ += Attribute("stroke", Hex(stroke->Colour)) + Attribute("stroke-width", Number(stroke->Width));
      std::string dashes;
      for (const double length : DashLengths(stroke->Pattern))
        dashes += (dashes.empty() ? "" : " ") + Number(length);
      if (!dashes.empty()) svg_ += Attribute("stroke-dasharray", dashes);
    }
    svg_ += "/>\n";
  }

  std::string& svg_;
  double lowerEdge_;
};

/// Writes one layer of all pages, so that a layer is one group in the whole document. `next` has the next
/// item of each page.
void WriteLayer(std::string& svg, const Drawing& drawing, std::size_t layer,
                const std::vector<std::vector<const Item*>>& pages, std::vector<std::size_t>& next) {
  svg += "<g" + Attribute("id", Escaped(drawing.Layers[layer])) + ">\n";
  for (std::size_t k = 0; k < pages.size(); ++k) {
    const ShapeWriter writer(svg, drawing.Height * static_cast<double>(k + 1));
    for (; next[k] < pages[k].size() && pages[k][next[k]]->Layer == layer; ++next[k])
      std::visit(writer, pages[k][next[k]]->What);
  }
  svg += "</g>\n";
}

}  // namespace

std::string SvgOf(const Drawing& drawing) {
  const std::string width = Number(drawing.Width);
  const std::string height = Number(drawing.Height * static_cast<double>(drawing.Pages.size()));
  std::string svg = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\"";
  svg += Attribute("width", width + "mm") + Attribute("height", height + "mm") +
         Attribute("viewBox", "0 0 " + width + ' ' + height) +
         " font-family=\"'DejaVu Sans', Verdana, sans-serif\" stroke-linecap=\"round\" "
         "stroke-linejoin=\"round\">\n";
  svg += "<title>" + Escaped(drawing.Title) + "</title>\n";
  svg += "<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n";
  std::vector<std::vector<const Item*>> pages;
  for (const Page& page : drawing.Pages) pages.push_back(InPaintOrder(drawing, page.Items));
  std::vector<std::size_t> next(pages.size());
  for (std::size_t layer = 0; layer < drawing.Layers.size(); ++layer)
    WriteLayer(svg, drawing, layer, pages, next);
  return svg + "</svg>\n";
}

}  // namespace sheet
