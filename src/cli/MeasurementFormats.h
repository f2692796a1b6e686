#pragma once

namespace quillmeter {

class Output;
class MeasuredProject;

/// What a person wants to read in a terminal: the overview's figures, then a line for each kind of file.
void writeTable(const MeasuredProject& project, Output& output);

/// The project's title and path, every file in section order with absent values as null, and the totals.
void writeJson(const MeasuredProject& project, Output& output);

/// A header and one row a file in section order with all fields; absent values are empty. A field that holds
/// a comma, a quote or a line break is quoted; bytes of names are written as they are.
void writeCsv(const MeasuredProject& project, Output& output);

}  // namespace quillmeter
