#include "yax/page/page_html.h"

#include <utf8.h>
#include <cmath>
#include <nlohmann/json.hpp>
#include <string_view>

#include "formats/json.h"
#include "model/version.h"
#include "render/tube.h"
#include "yax/page/page_parts.h"

namespace yax {

namespace {

using formats::Json;

/// JSON that is safe in a script element. Only "<" can end the element; JSON has it only in strings, where an
/// escape can replace it.
std::string InElement(const std::string& json) {
  std::string text;
  for (const char c : json) text += c == '<' ? "\\u003c" : std::string(1, c);
  return text;
}

std::string Escaped(std::string_view name) {
  std::string text;
  for (const char c : utf8::replace_invalid(name)) {
    if (c == '&')
      text += "&amp;";
    else if (c == '<')
      text += "&lt;";
    else
      text += c;
  }
  return text;
}

Json Bytes(const model::Colour& paint) {
  Json bytes = Json::array();
  for (const float part : {paint.Red, paint.Green, paint.Blue}) bytes.push_back(std::lround(255.0F * part));
  return bytes;
}

/// The wires as lists of values, because keys would take more space than the values.
std::string PackageJson(const PageInputs& inputs) {
  Json json{{"unit", inputs.Unit},
            {"tubeSides", render::kTubeSides},
            {"light", Json::array()},
            {"wires", Json::array()}};
  for (const model::Colour& paint : inputs.Model.Light) json["light"].push_back(Bytes(paint));
  for (const analysis::WireRow& row : inputs.Wires) {
    const auto found = inputs.Nearest.find(row.Place);
    const NearestWire nearest = found == inputs.Nearest.end() ? NearestWire{} : found->second;
    const WireTriangles& triangles = inputs.Model.Wires.at(row.Place);
    json["wires"].push_back({row.Name, row.OtherName, row.Tier, row.NetType, row.Length, row.Angle,
                             nearest.Clearance, nearest.Name, triangles.Mesh, triangles.First,
                             triangles.Count});
  }
  return InElement(formats::JsonPiece(json));
}

std::string DiagramPanel(const std::string& svg) {
  // HTML does not allow the XML declaration before the element.
  const std::size_t begin = svg.find("<svg");
  return "<section role=\"tabpanel\" id=\"diagram-panel\" aria-labelledby=\"diagram-tab\" hidden>\n" +
         svg.substr(begin) + "</section>\n";
}

constexpr char kDiagramTab[] =
    "<button type=\"button\" role=\"tab\" id=\"diagram-tab\" aria-controls=\"diagram-panel\" "
    "aria-selected=\"false\" tabindex=\"-1\">Diagram</button>\n";

std::string PartOf(const PageInputs& inputs, std::string_view name) {
  if (name == "GENERATOR") return std::string("yax ") + model::kVersionText;
  if (name == "TITLE") return Escaped(inputs.Title);
  if (name == "STYLE") return kPageStyle;
  if (name == "SCRIPT") return kPageScript;
  if (name == "PACKAGE") return PackageJson(inputs);
  if (name == "MODEL") return InElement(inputs.Gltf);
  if (inputs.Diagram.empty()) return "";
  return name == "DIAGRAM_TAB" ? kDiagramTab : DiagramPanel(inputs.Diagram);
}

}  // namespace

std::string PageHtml(const PageInputs& inputs) {
  std::string page;
  // Split at "@", the frame alternates between text and names of parts.
  bool isName = false;
  for (std::string_view rest = kPageFrame; !rest.empty(); isName = !isName) {
    const std::size_t end = std::min(rest.find('@'), rest.size());
    const std::string_view piece = rest.substr(0, end);
    page += isName ? PartOf(inputs, piece) : std::string(piece);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return page;
}

}  // namespace yax
