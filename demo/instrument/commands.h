// The handlers that the command table names, by the file that defines them.
#pragma once

#include "demo/instrument/command_table.h"

#define HANDLER(name) ScpiError name(const Command& command, Request& request)

// commands_settings.cpp
HANDLER(setNumber);
HANDLER(queryNumber);
HANDLER(setSwitch);
HANDLER(querySwitch);
HANDLER(setChoice);
HANDLER(queryChoice);

// commands_common.cpp
HANDLER(clearStatus);
HANDLER(setEventEnable);
HANDLER(queryEventEnable);
HANDLER(queryEventStatus);
HANDLER(queryIdentity);
HANDLER(setOperationComplete);
HANDLER(queryOperationComplete);
HANDLER(resetInstrument);
HANDLER(setServiceEnable);
HANDLER(queryServiceEnable);
HANDLER(queryStatusByte);
HANDLER(triggerFromBus);
HANDLER(querySelfTest);
HANDLER(waitToContinue);
HANDLER(queryError);
HANDLER(queryErrorCount);
HANDLER(queryScpiVersion);

// commands_run.cpp
HANDLER(setList);
HANDLER(addToList);
HANDLER(queryList);
HANDLER(queryListPoints);
HANDLER(queryDwellPoints);
HANDLER(moveToPoint);
HANDLER(initiateRun);
HANDLER(abortRun);
HANDLER(queryPresentPoint);
HANDLER(queryPresentFrequency);
HANDLER(queryPresentPower);
HANDLER(queryRunState);

// commands_service.cpp
HANDLER(setMassStorage);
HANDLER(queryMassStorage);
HANDLER(startBootloader);
HANDLER(queryCalibrationCount);
HANDLER(queryCalibrationPoints);
HANDLER(addCalibrationPoint);
HANDLER(saveCalibration);
HANDLER(queryCalibrationDue);
HANDLER(queryTemperature);

#undef HANDLER

/// Reads a value of the quantity, MIN, MAX or DEF, rounded to its resolution.
/// Errors: those of parseNumber, DataOutOfRange.
ScpiError readQuantity(const Model& model, Quantity quantity, std::string_view text, double& value);
