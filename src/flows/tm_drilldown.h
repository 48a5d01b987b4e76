// TmDrilldown: the transaction drill-down of cache-formula cells, run by the engine.
#pragma once

namespace kxc {

// A drill-down is always DrilldownClear, then DrilldownAddCriteria once per cell, then
// ExecutePopulateTrans once. All three work on gCacheEngine; the criteria come from
// gCurrentFormula.

// Starts a new drill-down: the engine forgets every pending criterion. Raises what the
// engine raises.
void DrilldownClear();

// Adds the criteria of gCurrentFormula: the resolved cache and one filter per dimension of
// the cache (at most 20): the resolved dimension argument, or "<ALL>" when it resolves to ""
// or the formula has no such argument. The measure is not sent. Every error is ignored.
void DrilldownAddCriteria();

// Runs the pending drill-down for gCurrentFormula's resolved cache into the transactions
// form's grid (the engine fills it), sizes the columns and shows the form. Raises what the
// engine or the form raises (91 when no transactions form is installed).
void ExecutePopulateTrans();

}  // namespace kxc
