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

static _Thread_local int are_lists_left_out;

static _Thread_local struct {
  Dwg_DXF_Read_Fn fn;
  void* user;
  size_t reported;
} read_listener;

static const size_t kReportedStep = (size_t)4 << 20;

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

void dwg_dxf_on_read(Dwg_DXF_Read_Fn fn, void* user) {
  read_listener.fn = fn;
  read_listener.user = user;
  read_listener.reported = 0;
}

void dwg_dxf_report_read(size_t size) {
  if (read_listener.fn != NULL && size >= read_listener.reported + kReportedStep) {
    read_listener.reported = size;
    read_listener.fn(read_listener.user, size);
  }
}

void dwg_dxf_want_entity_lists(int are_wanted) {
  are_lists_left_out = !are_wanted;
}

int dwg_dxf_are_entity_lists_wanted(void) {
  return !are_lists_left_out;
}
