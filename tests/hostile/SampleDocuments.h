#pragma once
// Small files as the program writes them, and what it does with a file of each kind: for tests that damage the files
// and for fuzzing, which starts from them.

#include <memory>
#include <string>
#include <vector>

#include "host/foundation/Result.h"
#include "host/foundation/Value.h"
#include "toolbar/ZORDashboardToolbarPlugIn.h"

namespace zor::test {

/// Registers every class that a file may name, the plug-in's included, as the program does at its start.
void loadPlugIn();

enum class DocumentKind { site, exported, pasteboard };

struct SampleDocument {
    std::string name;
    DocumentKind kind = DocumentKind::site;
    Bytes data;
};

/// Twenty: Site Documents, an export of each instrument, copied widgets. The same at every call.
const std::vector<SampleDocument>& sampleDocuments();

/// Opens it as a Site Document, writes it again and closes it. The error is the program's own.
Status openSite(const Bytes& data);
/// Chooses it in the open panel of a fresh document, which answers the warning about another station; a dashboard is
/// there afterwards in any case. Its picture is drawn and it is archived again.
Status importDashboard(const Bytes& data);
/// Pastes it on a canvas that is edited, and takes it back; an error where nothing was pasted.
Status pasteWidgets(const Bytes& data);
/// What the kind asks for.
Status readDocument(DocumentKind kind, const Bytes& data);

}  // namespace zor::test
