#include "dwg_dxf_skipped.h"

#include <string.h>

static _Thread_local struct {
  Dwg_DXF_Skipped_Fn fn;
  void* user;
} listener;

static _Thread_local struct {
  const char* const* names;
  size_t count;
} wanted;

void dwg_dxf_on_skipped(Dwg_DXF_Skipped_Fn fn, void* user) {
  listener.fn = fn;
  listener.user = user;
}

void dwg_dxf_report_skipped(const Dwg_DXF_Skipped* skipped) {
  if (listener.fn != NULL) {
    listener.fn(listener.user, skipped);
  }
}

void dwg_dxf_want_objects(const char* const* names, size_t count) {
  wanted.names = names;
  wanted.count = count;
}

int dwg_dxf_is_wanted_object(const char* name) {
  for (size_t i = 0; i < wanted.count; i++) {
    if (strcmp(wanted.names[i], name) == 0) {
      return 1;
    }
  }
  return wanted.names == NULL;
}
