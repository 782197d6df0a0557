#include "shell/commands.h"

#include <optional>

#include "model/files.h"
#include "render/bitmap.h"
#include "shell/main_form.h"
#include "shell/program_end.h"

namespace shell {

namespace {

constexpr MenuEntry kMenu[] = {
    {1, "DoLoadYAX", "Load YAX File ...", &Commands::DoLoadYAX_Click},
    {1, "do0", "-", nullptr},
    {1, "DoSavePic", "Save Picture ...", &Commands::DoSavePic_Click},
    {1, "do1", "-", nullptr},
    {1, "DoPrinterSetup", "Printer Setup ...", &Commands::DoPrinterSetup_Click},
    {1, "DoPrintPic", "Print Picture", nullptr},
    {2, "DoNoScale", "No Scale", &Commands::DoNoScale_Click},
    {2, "DoFitPage", "Fit Page", &Commands::DoFitPage_Click},
    {1, "do2", "-", nullptr},
    {1, "DoBackground", "Background", nullptr},
    {2, "DoBlack", "Black", &Commands::DoBlack_Click},
    {2, "DoWhite", "White", &Commands::DoWhite_Click},
    {1, "DoBondWireSetup", "Wire Bond Setup ...", &Commands::DoBondWireSetup_Click},
    {1, "DoWireList", "Wire List ...", &Commands::DoWireList_Click},
    {1, "do3", "-", nullptr},
    {1, "DoHelp", "Help", nullptr},
    // Deliberate: this is how the entry has always been spelled.
    {2, "DoNavHelp", "Navagation", &Commands::DoNavHelp_Click},
    {2, "DoViewHelp", "Viewer", &Commands::DoViewHelp_Click},
    {2, "DoAbout", "About", &Commands::DoAbout_Click},
};

}  // namespace

std::span<const MenuEntry> CommandMenu() { return kMenu; }

void Commands::DoLoadYAX_Click() {
  end_.RunTrapped([this] { ChoosePackage(); });
}

void Commands::LoadDropped(const std::string& path) {
  end_.RunTrapped([&] {
    Actions.UnloadWireList();
    LoadPackage(path);
  });
}

void Commands::ChoosePackage() {
  // The list closes before the dialog opens, even if the user then cancels: it shows the old package.
  Actions.UnloadWireList();
  const std::optional<std::string> path = Filn_.ShowOpen({.DialogTitle = "Load YAX File",
                                                          .FileName = "*.yax",
                                                          .Filter = "YAX files|*.yax|All files|*.*",
                                                          .DefaultExt = ".yax",
                                                          .PackagePath = form_.Package().PackagePath});
  if (path) LoadPackage(*path);
}

void Commands::LoadPackage(const std::string& path) {
  form_.SetPackagePath(path);
  form_.SkipStartup = true;
  form_.Form_Load();
}

void Commands::DoSavePic_Click() {
  end_.RunTrapped([this] { SavePicture(); });
}

void Commands::SavePicture() {
  const std::optional<std::string> path = Filn_.ShowSave({.DialogTitle = "Save Picture",
                                                          .FileName = "*.bmp",
                                                          .Filter = "bmp files|*.bmp|All files|*.*",
                                                          .OverwritePrompt = true,
                                                          .PackagePath = form_.Package().PackagePath});
  if (path) model::WriteWholeFile(*path, render::BitmapBytes(form_.FramePicture()));
}

void Commands::DoPrinterSetup_Click() {
  end_.RunTrapped([this] { Actions.SetUpPrinter(); });
}

void Commands::DoNoScale_Click() { Print(false); }

void Commands::DoFitPage_Click() { Print(true); }

void Commands::Print(bool fit) {
  end_.Run([&] { Actions.Print(form_.FramePicture(), fit); });
}

void Commands::DoBlack_Click() {
  end_.Run([this] { form_.SetBackground(true); });
}

void Commands::DoWhite_Click() {
  end_.Run([this] { form_.SetBackground(false); });
}

void Commands::DoBondWireSetup_Click() {
  end_.Run([this] { Actions.ShowWireBondSetup(); });
}

void Commands::DoWireList_Click() {
  end_.Run([this] { Actions.ShowWireList(); });
}

void Commands::DoNavHelp_Click() { ShowHelp("Navigation Help", "NavHelp.rtf"); }

void Commands::DoViewHelp_Click() { ShowHelp("3D Yax Viewer Help", "YaxViewHelp.rtf"); }

void Commands::ShowHelp(const std::string& caption, const std::string& file) {
  end_.Run([&] { Actions.ShowHelp(caption, form_.ProgramFolder() + "/" + file); });
}

void Commands::DoAbout_Click() {
  end_.Run([this] { Actions.ShowAbout(); });
}

}  // namespace shell
