// Start-up of the formula flows: what the facade and the formula writer reach them through.
#pragma once

namespace kxc {

// Installs the facade's showFormulaEdit hook (ShowFormulaEdit) and makes the formula builder
// dialog the builder WriteCacheFormula asks. Call once at start-up, before the first command;
// calling it again changes nothing.
void installFormulaFlows();

// Destroys the formula builder and the lookup dialog (each comes back fresh on its next use).
// For program end and tests.
void releaseFormulaDialogs();

}  // namespace kxc
