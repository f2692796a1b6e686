#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <string>
#include <unordered_set>

#include "cli/Commands.h"
#include "cli/JsonWriter.h"
#include "cli/Measurement.h"
#include "cli/Output.h"
#include "cli/Suggestions.h"
#include "support/CommandConfinement.h"
#include "support/ExitStatus.h"
#include "support/Text.h"
#include "tables/CleanUpTable.h"

namespace quillmeter {
namespace {

struct CleanupOptions {
  ReadOptions read;
  std::string format = "table";
  bool check = false;
};

void writeJson(const FileTable& table, Output& output) {
  JsonWriter json(output);
  json.beginObject();
  json.key("files");
  json.beginArray();
  for (const auto& file : table.rows()) {
    json.beginObject();
    json.member("fileName", file->fileName());
    json.member("filePath", file->filePath());
    json.member("fileSize", file->fileSize());
    json.endObject();
  }
  json.endArray();
  json.endObject();
}

/// Sizes and paths in two columns, a file a line.
void writeTable(const FileTable& table, Output& output) {
  if (table.rows().empty()) {
    output.write(std::string(kCleanProjectText) + "\n");
    return;
  }
  const std::size_t pathColumn = table.columnOf("filePath").value();
  const std::size_t sizeColumn = table.columnOf("fileSize").value();
  const std::string_view sizeHeader = table.columns()[sizeColumn].header;
  std::size_t width = sizeHeader.size();
  for (std::size_t row = 0; row < table.rows().size(); ++row)
    width = std::max(width, utf16Length(table.cellText(row, sizeColumn)));
  const auto writeRow = [&](std::string_view size, std::string_view path) {
    output.write(std::string(width - utf16Length(size), ' '));
    output.write(size);
    output.write("  ");
    output.write(path);
    output.write("\n");
  };
  writeRow(sizeHeader, table.columns()[pathColumn].header);
  for (std::size_t row = 0; row < table.rows().size(); ++row)
    writeRow(table.cellText(row, sizeColumn), onOneLine(table.cellText(row, pathColumn)));
}

/// A file of the list that the project refers to. It was not there when the project was measured but came
/// back for the list: somebody replaces files meanwhile. Null when there is none.
const FileObject* referencedAmong(const FileList& files, const ProjectReader& project) {
  std::unordered_set<std::string_view> missing;
  for (const MissingReference& reference : project.findings().missing)
    missing.insert(reference.location);
  if (missing.empty()) return nullptr;
  const bool isCurrent = project.rules() == ProjectRules::current;
  const auto isMissing = [&](std::string_view path) {
    while (!missing.contains(path)) {
      // The current rules refer to it or to a folder that it is in; the classic ones look for what ends as
      // the reference does.
      const std::size_t slash = isCurrent ? path.rfind('/') : path.find('/');
      if (slash == std::string_view::npos) return false;
      path = isCurrent ? path.substr(0, slash) : path.substr(slash + 1);
    }
    return true;
  };
  const auto found = std::find_if(files.begin(), files.end(),
                                  [&](const auto& file) { return isMissing(*file->filePath()); });
  return found == files.end() ? nullptr : found->get();
}

int cleanup(const CleanupOptions& options) {
  confineToOutputs();
  const auto project = readProject(options.read);
  if (!project) return kNothingMeasured;
  ReadFaults ownFaults;
  const FileList files = project->unreferencedFiles(ownFaults);
  // Both walks met the same faults, most likely.
  tellOfFaults(project->faults().count > 0 ? project->faults() : ownFaults);
  if (project->faults().mayMislead || ownFaults.mayMislead) {
    complain("no list, since a file that is referenced there might look left over");
    return kNothingMeasured;
  }
  if (const FileObject* referenced = referencedAmong(files, *project)) {
    complain("no list, since files changed while they were read: the project refers to " +
             *referenced->filePath());
    return kNothingMeasured;
  }
  const FileTable table = cleanUpTable(files, project->kinds());
  Output output(std::nullopt);
  if (options.format == "json") {
    writeJson(table, output);
  } else {
    writeTable(table, output);
  }
  return statusAfter(output, options.check && !table.rows().empty() ? kFindings : kSuccess);
}

}  // namespace

void addCleanupCommand(CLI::App& app, int& status) {
  const auto options = std::make_shared<CleanupOptions>();
  CLI::App* command = app.add_subcommand(
      "cleanup", "List the files in a project's folder that the project does not reference");
  command->add_option("--format", options->format, "table: sizes in KB (1000 bytes) and paths; json: bytes")
      ->check(oneOf({"table", "json"}))
      ->capture_default_str();
  command->add_flag("--check", options->check, "Exit with status 1 when there is any such file");
  addReadOptions(*command, options->read);
  command->footer(
      "Source files, images and interface files are looked for; hidden files are left out.\n\n"
      "Examples:\n"
      "  quillmeter-cli cleanup ~/Projects/Notebook\n"
      "  quillmeter-cli cleanup --check --format json Notebook.xcodeproj > leftovers.json");
  command->callback([options, &status] { status = cleanup(*options); });
}

}  // namespace quillmeter
