; A running light on PORTB of a PIC18F452, 4 MHz crystal: eight patterns from a table in program memory, each
; shown for as long as the EEPROM's first byte says. It fills the kinds of memory that a programmer handles:
; code, a table far from it, configuration, ID locations and data EEPROM.
;
; Assemble with: gpasm -p 18f452 blinker.asm

        list    p=18f452
        include <p18f452.inc>

        config  OSC = XT, OSCS = OFF
        config  PWRT = ON, BOR = ON, BORV = 42
        config  WDT = OFF, STVR = ON, LVP = OFF, DEBUG = OFF
        config  CP0 = OFF, CP1 = OFF, CP2 = OFF, CP3 = OFF, CPB = OFF, CPD = OFF
        config  WRT0 = OFF, WRT1 = OFF, WRT2 = OFF, WRT3 = OFF, WRTB = OFF, WRTC = OFF, WRTD = OFF

step    equ     0x00            ; pattern that is shown, 0 to 7
ticks   equ     0x01            ; timer overflows left for it

        org     0x0000
        goto    start

        org     0x0008          ; no interrupts are used
        retfie

        org     0x0020
start   clrf    LATB
        clrf    TRISB
        clrf    step
        movlw   0x87            ; timer 0: 16 bits, 1:256, about 65 ms an overflow at its preload
        movwf   T0CON

show    movlw   upper patterns
        movwf   TBLPTRU
        movlw   high patterns
        movwf   TBLPTRH
        movlw   low patterns
        addwf   step, w
        movwf   TBLPTRL
        tblrd*
        movff   TABLAT, LATB
        call    duration
        movwf   ticks
wait    movlw   0xff
        movwf   TMR0H
        clrf    TMR0L
        bcf     INTCON, TMR0IF
tick    btfss   INTCON, TMR0IF
        bra     tick
        decfsz  ticks, f
        bra     wait
        incf    step, w
        andlw   0x07
        movwf   step
        bra     show

; The first byte of the EEPROM into W.
duration
        clrf    EEADR
        bcf     EECON1, EEPGD
        bcf     EECON1, CFGS
        bsf     EECON1, RD
        movf    EEDATA, w
        return

        org     0x0400
patterns
        db      0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80

        org     0x7FC0          ; the last row of the chip
        db      "Zelvo blinker, PIC18F452. The last row of the memory is in use.", 0x00

        org     0x200000
        __idlocs _IDLOC0, '1'
        __idlocs _IDLOC1, '0'
        __idlocs _IDLOC2, '0'

        org     0xF00000
        de      0x04, "Zelvo", 0x00

        end
