/* How LibreDWG's DXF reader hands strings over. */
#ifndef DWG_DXF_TEXT_H
#define DWG_DXF_TEXT_H

#ifdef __cplusplus
extern "C" {
#endif

/* Whether the reads that follow on this thread hand strings over as the file
   stores them. By default, 0, the reader turns \M+nxxxx into \U+xxxx, and ^J and
   ^M into line feeds and carriage returns. Files in binary are never changed. */
void dwg_dxf_keep_text_codes(int keep);

/* For the reader itself. */
int dwg_dxf_keeps_text_codes(void);

#ifdef __cplusplus
}
#endif

#endif
