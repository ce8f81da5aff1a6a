#pragma once

int vlCatchAllApply();  // vl_catch_all_apply
int vlCatchAllErrorP(); // vl_catch_all_error_p
