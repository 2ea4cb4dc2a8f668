#include "tools/vrex/commands/VrexConvertCommand.h"

#include "tools/vrex/VrexConsole.h"
#include "tools/vrex/VrexDocumentReader.h"
#include "tools/vrex/VrexDocumentWriter.h"
#include "tools/vrex/VrexSystemStream.h"
#include "tools/vrex/VrexToolFailure.h"

VrexExitCode VrexConvertCommand::run(const VrexConsole& console) const {
    if (form == Form::STREAM && output == "-" && console.isOutputTerminal()) {
        throw VrexToolFailure(VrexExitCode::USAGE,
                              "A stream is nothing for a terminal: name a file with --out, or a pipe.");
    }
    nsVrexDocument::expectOther(input, output);
    const VrexDocument document = nsVrexDocument::read(input, console);
    const VrexImmutableSystem3D& system = document.system;
    if (form == Form::DOCUMENT) {
        nsVrexDocument::write(output, nsVrexDocument::textOf(document, indentWidth), console);
        return VrexExitCode::FINE;
    }
    const std::string stream = nsVrexSystemStream::encode(document.title, system);
    if (nsVrexSystemStream::leavesOut(system)) {
        console.note("A stream keeps no tolerances, drags and reference geometries: those of " +
                     document.title + " are left out.");
    }
    nsVrexDocument::write(output, stream, console);
    return VrexExitCode::FINE;
}
