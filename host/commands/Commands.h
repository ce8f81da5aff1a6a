#pragma once

#include "host/commands/Context.h"

// The commands, each written as its prompts, top to bottom. A family is one source.
namespace commands {

// UndoCommands.cpp
Command undo(Context &context);
Command undoOne(Context &context);
Command redo(Context &context);

// VariableCommands.cpp
Command setVariable(Context &context);    // SETVAR
Command changeVariable(Context &context); // the name of a variable
Command color(Context &context);

// SelectionCommands.cpp
Command erase(Context &context);
Command unerase(Context &context); // OOPS
Command select(Context &context);
Command selectOneAnswer(Context &context);
Command preselect(Context &context); // PSELECT

// LineCommands.cpp
Command line(Context &context);
Command point(Context &context);
Command solid(Context &context);

// SpatialCommands.cpp
Command spatialPolyline(Context &context); // 3DPOLY
Command face(Context &context);            // 3DFACE
Command spline(Context &context);

Command polyline(Context &context);        // PolylineCommand.cpp
Command rectangle(Context &context);       // RectangleCommand.cpp
Command defineAttribute(Context &context); // AttributeCommand.cpp (ATTDEF)
Command text(Context &context);            // TextCommand.cpp

// CurveCommands.cpp
Command circle(Context &context);
Command arc(Context &context);

// TransformCommands.cpp
Command move(Context &context);
Command copy(Context &context);
Command rotate(Context &context);
Command scale(Context &context);
Command mirror(Context &context);

// PropertyCommands.cpp
Command chprop(Context &context);
Command linetype(Context &context);

Command change(Context &context); // ChangeCommand.cpp

// ViewCommands.cpp
Command zoom(Context &context);
Command pan(Context &context);
Command plan(Context &context);
Command changeNothing(Context &context); // REGEN, TEXTSCR and the like

Command drawOrder(Context &context); // DrawOrderCommand.cpp
Command script(Context &context);    // ScriptCommand.cpp

Command layout(Context &context);     // LayoutCommand.cpp
Command plot(Context &context);       // PlotCommand.cpp
Command writeBlock(Context &context); // WriteBlockCommand.cpp

Command dimensionStyle(Context &context); // DimensionStyleCommand.cpp
Command paragraphText(Context &context);  // ParagraphCommand.cpp
Command viewports(Context &context);      // ViewportCommands.cpp
Command objectSnap(Context &context);     // VariableCommands.cpp

// SpaceCommands.cpp
Command modelSpace(Context &context); // MSPACE
Command paperSpace(Context &context); // PSPACE

Command ucs(Context &context);  // UcsCommand.cpp
Command view(Context &context); // NamedViewCommand.cpp

// InsertCommands.cpp
Command insert(Context &context);
Command block(Context &context);
Command explode(Context &context);

Command area(Context &context);   // AreaCommand.cpp
Command offset(Context &context); // OffsetCommand.cpp

// MeasureCommands.cpp
Command identify(Context &context); // ID
Command distance(Context &context); // DIST

Command style(Context &context);       // StyleCommand.cpp
Command limits(Context &context);      // LimitsCommand.cpp
Command listObjects(Context &context); // ListCommand.cpp

Command purge(Context &context);       // PurgeCommand.cpp
Command breakObject(Context &context); // BreakCommand.cpp
Command stretch(Context &context);     // StretchCommand.cpp

// TrimCommands.cpp
Command trim(Context &context);
Command extend(Context &context);

Command fillet(Context &context); // FilletCommand.cpp
// HatchCommand.cpp
Command hatch(Context &context);
Command boundary(Context &context);
Command editHatch(Context &context); // HATCHEDIT

// DimensionCommands.cpp
Command dimensionLinear(Context &context);
Command dimensionAligned(Context &context);
Command dimensionRadius(Context &context);
Command dimensionDiameter(Context &context);
Command dimensionAngular(Context &context);  // AngleDimensionCommand.cpp
Command dimensionOrdinate(Context &context); // OrdinateDimensionCommand.cpp
// ChainDimensionCommands.cpp
Command dimensionContinue(Context &context);
Command dimensionBaseline(Context &context);
Command leader(Context &context);        // LeaderCommand.cpp
Command dimensionOnce(Context &context); // DIM1
Command dimensions(Context &context);    // DIM

Command array(Context &context); // ArrayCommand.cpp

// DivideCommands.cpp
Command divide(Context &context);
Command measure(Context &context);

Command editPolyline(Context &context); // PolylineEditCommand.cpp

// ShapeCommands.cpp
Command ellipse(Context &context);
Command polygon(Context &context);
Command donut(Context &context);
Command xline(Context &context);
Command ray(Context &context);

// MatchCommands.cpp
Command matchProperties(Context &context);
Command renameObject(Context &context);
Command delay(Context &context);

// FileCommands.cpp
Command save(Context &context);
Command saveAs(Context &context);
Command quickSave(Context &context);
Command exportDrawing(Context &context); // DXFOUT
Command open(Context &context);

// LayerCommand.cpp
Command layer(Context &context);

} // namespace commands
