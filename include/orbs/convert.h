/* orbs/convert.h: conversion between sample formats. */
#ifndef ORBS_CONVERT_H
#define ORBS_CONVERT_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
