#pragma once

// A LISP function of the module. The interpreter calls it without native arguments; it fetches them from the active
// document's LispHost, sets at most one result there and gives StatusNormal, or StatusError to make the call fail.
using LispHandler = int (*)();
