#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>
#include <string>

#include "model/text.h"
#include "render/mesh_pen.h"
#include "render/scene.h"
#include "yax/command_list.h"
#include "yax/meshes/mesh_files.h"
#include "yax/messages.h"
#include "yax/options/nets_options.h"
#include "yax/options/opened_package.h"
#include "yax/options/picture_options.h"
#include "yax/output.h"
#include "yax/page/package_page.h"

namespace yax {

namespace {

enum class ExportFormat { Glb, Obj, Html };

struct ExportOptions {
  PackageOptions Package;
  std::string Output;
  ExportFormat Format = ExportFormat::Glb;
  render::Appearance Appearance;
  analysis::NetRule Nets;
};

ExportFormat ExportFormatOf(const std::string& output) {
  const std::string name = model::UpperCase(output);
  if (name == "-" || name.ends_with(".GLB")) return ExportFormat::Glb;
  if (name.ends_with(".OBJ")) return ExportFormat::Obj;
  if (name.ends_with(".HTML")) return ExportFormat::Html;
  throw Unusable({.File = output}, "unknown export format", "use .glb, .obj, .html or -");
}

/// Writes both files or neither; for an .obj on a stream, the .mtl first.
void WriteObj(const MeshScene& scene, const std::string& output) {
  const std::string materialFile = std::filesystem::path(output).replace_extension(".mtl").string();
  const std::string materials = MtlText(scene);
  const std::string objects = ObjText(scene, std::string(model::FileNameOf(materialFile)));
  if (!IsStream(output)) return WriteOutputs({{materialFile, materials}, {output, objects}});
  WriteOutput(materialFile, materials);
  WriteOutput(output, objects);
}

void WriteMeshes(const OpenedPackage& opened, const ExportOptions& options) {
  const analysis::LengthUnit unit = opened.Unit();
  const double scale = double(opened.Package.UnitScale);
  render::MeshPen pen(opened.Package, opened.WireDiameter() / 2.0 / scale,
                      [&options](const std::string& name) { return analysis::NetOf(options.Nets, name); });
  render::Scene(opened.Inputs(options.Appearance), pen).DrawPackage();
  const MeshScene scene{.Name = std::string(model::FileNameOf(opened.Package.PackagePath)),
                        .Groups = pen.Groups(),
                        .FileUnits = scale,
                        .Metres = scale * unit.Metres,
                        .UnitName = unit.Name};
  if (options.Format == ExportFormat::Obj) return WriteObj(scene, options.Output);
  WriteOutput(options.Output, GlbBytes(scene));
}

Status Export(const ExportOptions& options) {
  const OpenedPackage opened(options.Package);
  try {
    if (options.Format == ExportFormat::Html)
      WriteOutput(options.Output, PageOf(opened, options.Nets));
    else
      WriteMeshes(opened, options);
  } catch (const model::Fault& fault) {
    throw opened.NotDrawn(fault);
  }
  return Status::Done;
}

}  // namespace

Command AddExport(CLI::App& program) {
  CLI::App* const command = program.add_subcommand(
      "export", "Write the package as meshes for other programs, or as a page for any browser");
  const auto options = std::make_shared<ExportOptions>();
  AddPackageOption(*command, options->Package);
  command
      ->add_option_function<std::string>(
          "-o,--output",
          [options](const std::string& file) {
            options->Output = file;
            options->Format = ExportFormatOf(file);
          },
          "The meshes: .glb, or .obj with an .mtl beside it; - for .glb on standard output. Or a page: .html")
      ->type_name("FILE")
      ->required();
  AddUnitOption(*command, options->Package);
  AddNetOptions(*command, options->Nets);
  AddBackgroundOption(*command, options->Appearance);
  AddLoopOptions(*command, options->Package.Loops);
  AddWireOptions(*command, options->Package.Wires);
  return {command, [options] { return Export(*options); }};
}

}  // namespace yax
