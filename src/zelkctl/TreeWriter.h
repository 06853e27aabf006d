// SPDX-License-Identifier: MIT
#pragma once

class StfFile;

namespace zelkctl {

class Output;

/// Writes a structured file as JSON, one line for each block: header, encoding, blocks and notes.
/// Does not flush the output.
void WriteTree(const StfFile &file, Output &out);

} // namespace zelkctl
