// SPDX-License-Identifier: MIT
#pragma once

class Document;

/// What the application shows when it starts.
namespace SampleDocument {
/// A small picture.
void fill(Document &document);
/// So many shapes of all kinds in rows.
void fillWithRows(Document &document, int count);
} // namespace SampleDocument
