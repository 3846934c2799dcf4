// XPLMDataAccess.h. Every write here comes from the plug-in under test, so writes to the
// simulator's own datarefs are recorded as events.
#include <XPLMDataAccess.h>

#include "host/SdkHost.h"

using sim::DatarefWriter;
using sim::SdkHost;

XPLMDataRef XPLMFindDataRef(const char* inDataRefName) {
  if (inDataRefName == nullptr) return nullptr;
  return SdkHost().datarefs.Find(inDataRefName);
}

int XPLMCanWriteDataRef(XPLMDataRef inDataRef) { return SdkHost().datarefs.CanWrite(inDataRef) ? 1 : 0; }

int XPLMIsDataRefGood(XPLMDataRef inDataRef) { return SdkHost().datarefs.IsGood(inDataRef) ? 1 : 0; }

XPLMDataTypeID XPLMGetDataRefTypes(XPLMDataRef inDataRef) { return SdkHost().datarefs.Types(inDataRef); }

int XPLMGetDatai(XPLMDataRef inDataRef) { return SdkHost().datarefs.GetInt(inDataRef); }

void XPLMSetDatai(XPLMDataRef inDataRef, int inValue) {
  SdkHost().datarefs.SetInt(inDataRef, inValue, DatarefWriter::PluginUnderTest);
}

float XPLMGetDataf(XPLMDataRef inDataRef) { return SdkHost().datarefs.GetFloat(inDataRef); }

void XPLMSetDataf(XPLMDataRef inDataRef, float inValue) {
  SdkHost().datarefs.SetFloat(inDataRef, inValue, DatarefWriter::PluginUnderTest);
}

double XPLMGetDatad(XPLMDataRef inDataRef) { return SdkHost().datarefs.GetDouble(inDataRef); }

void XPLMSetDatad(XPLMDataRef inDataRef, double inValue) {
  SdkHost().datarefs.SetDouble(inDataRef, inValue, DatarefWriter::PluginUnderTest);
}

int XPLMGetDatavi(XPLMDataRef inDataRef, int* outValues, int inOffset, int inMax) {
  return SdkHost().datarefs.GetInts(inDataRef, outValues, inOffset, inMax);
}

void XPLMSetDatavi(XPLMDataRef inDataRef, int* inValues, int inoffset, int inCount) {
  SdkHost().datarefs.SetInts(inDataRef, inValues, inoffset, inCount, DatarefWriter::PluginUnderTest);
}

int XPLMGetDatavf(XPLMDataRef inDataRef, float* outValues, int inOffset, int inMax) {
  return SdkHost().datarefs.GetFloats(inDataRef, outValues, inOffset, inMax);
}

void XPLMSetDatavf(XPLMDataRef inDataRef, float* inValues, int inoffset, int inCount) {
  SdkHost().datarefs.SetFloats(inDataRef, inValues, inoffset, inCount, DatarefWriter::PluginUnderTest);
}

int XPLMGetDatab(XPLMDataRef inDataRef, void* outValue, int inOffset, int inMaxBytes) {
  return SdkHost().datarefs.GetBytes(inDataRef, outValue, inOffset, inMaxBytes);
}

void XPLMSetDatab(XPLMDataRef inDataRef, void* inValue, int inOffset, int inLength) {
  SdkHost().datarefs.SetBytes(inDataRef, inValue, inOffset, inLength);
}

XPLMDataRef XPLMRegisterDataAccessor(const char* inDataName, XPLMDataTypeID inDataType,
                                     int inIsWritable, XPLMGetDatai_f inReadInt,
                                     XPLMSetDatai_f inWriteInt, XPLMGetDataf_f inReadFloat,
                                     XPLMSetDataf_f inWriteFloat, XPLMGetDatad_f inReadDouble,
                                     XPLMSetDatad_f inWriteDouble, XPLMGetDatavi_f inReadIntArray,
                                     XPLMSetDatavi_f inWriteIntArray,
                                     XPLMGetDatavf_f inReadFloatArray,
                                     XPLMSetDatavf_f inWriteFloatArray, XPLMGetDatab_f inReadData,
                                     XPLMSetDatab_f inWriteData, void* inReadRefcon,
                                     void* inWriteRefcon) {
  if (inDataName == nullptr) return nullptr;
  const sim::DatarefAccessors accessors{inReadInt,      inWriteInt,       inReadFloat,
                                        inWriteFloat,   inReadDouble,     inWriteDouble,
                                        inReadIntArray, inWriteIntArray,  inReadFloatArray,
                                        inWriteFloatArray, inReadData,    inWriteData,
                                        inReadRefcon,   inWriteRefcon};
  return SdkHost().datarefs.Register(inDataName, inDataType, inIsWritable != 0, accessors);
}

void XPLMUnregisterDataAccessor(XPLMDataRef inDataRef) { SdkHost().datarefs.Unregister(inDataRef); }
